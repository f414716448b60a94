#pragma once
// What the loading logic asks of the view: a new file is drawn from its first record, a project
// through its listing. The window and the render tool draw the same way.
namespace hlyd {

void installViewHooks();

}  // namespace hlyd
