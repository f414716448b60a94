#pragma once
// The one rule for every file the program writes (the log, the print history, the PDF and the
// HTML document): it never writes over a file of the user's. A target is refused when it is a
// file this run reads, when its name has the extension of a Visual Basic source or project, or
// when it exists and holds something other than what this program writes there. A refusal is
// told before anything is written, so that a refused run changes nothing.
#include <optional>
#include <string>
#include <vector>

namespace hlyd {

enum class OutputKind { Log, History, Pdf, Html };

struct OutputTarget {
    std::string path;
    OutputKind kind = OutputKind::Pdf;
    std::string namedBy;  // the option or setting the name came from, for the message
};

// Empty when the target may be written; else the message for the user, naming the file and where
// its name came from. `inputs` are the files the run reads besides the settings and keyword files.
std::string outputRefusal(const OutputTarget& target, const std::vector<std::string>& inputs);
// The same against the files of the table and their projects.
std::string outputRefusal(const OutputTarget& target);

// Each target by the rule, and no two of them the same file. Empty when all may be written.
std::string outputsRefusal(const std::vector<OutputTarget>& targets, const std::vector<std::string>& inputs);

// The log and the print history as the settings name them; nothing when they are not in use.
std::optional<OutputTarget> logOutput();
std::optional<OutputTarget> historyOutput();

}  // namespace hlyd
