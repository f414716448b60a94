#pragma once
// The program's own Session, made once at start.
namespace hlyd {

// Makes the program's Session current unless one already is. Every entry of a run (the program,
// its parts, the tools, the test runners) calls it before anything reads the modules' state.
void installProgramSession();

}  // namespace hlyd
