#pragma once
// The names of a command line made into the files to print: a pattern stands for the files it
// matches, a name without an extension for the source file that has one. A name that gives no
// file is told on the job's error stream and sets the exit status; the rest are printed.
#include <string>
#include <vector>

namespace hlyd {

// "Sample" stands for the first of Sample.bas, Sample.cls, ... (the source extensions of the
// settings) that exists; a name with an extension, or that exists, stays as it is.
std::string withSourceExtension(const std::string& name);

// True for a name with "*" or "?" in its last part.
bool isNamePattern(const std::string& name);
// The regular files of the pattern's folder whose names match its last part ("*" any run of
// characters, "?" one), sorted by name. Letter case counts where the file system tells it.
std::vector<std::string> filesMatching(const std::string& pattern);

// The files the names stand for, in the order given.
std::vector<std::string> filesToPrint(const std::vector<std::string>& names);

}  // namespace hlyd
