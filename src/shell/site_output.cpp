#include "shell/site_output.h"

#include <filesystem>

#include "base/hlyd_error.h"
#include "files/output_guard.h"
#include "files/run_inputs.h"
#include "html/site_writer.h"
#include "platform/os.h"
#include "shell/command_line_job.h"

namespace hlyd {

namespace {

// Empty when the folder is there or was made; a missing parent is a slip of the user's that a
// whole tree of new folders would hide.
std::string folderProblem(const std::string& folder) {
    os::FileInfo info = os::fileInfo(folder);
    if (info.exists()) return info.kind == os::FileKind::Directory ? "" : "is there and is no folder";
    std::string parent = std::filesystem::path(folder).parent_path().string();
    if (os::fileInfo(parent).kind != os::FileKind::Directory) return "cannot be made: " + parent + " is no folder";
    return os::makeDirectories(folder) ? "" : "cannot be made";
}

}  // namespace

bool exportSiteForCommandLine(const std::string& source) {
    std::string folder = os::absolutePath(commandLineJob().options.siteOut);
    if (std::string problem = folderProblem(folder); !problem.empty()) {
        failJob(kExitUnwritable, "will not write the site into " + folder + ": it " + problem);
        return false;
    }
    HtmlSite site(folder);
    std::vector<OutputTarget> targets;
    for (const std::string& page : site.outputs()) targets.push_back({page, OutputKind::Html, "--site"});
    std::vector<std::string> inputs = inputsOfThisRun();
    inputs.push_back(source);
    if (std::string refusal = outputsRefusal(targets, inputs); !refusal.empty()) {
        failJob(kExitUnwritable, refusal);
        return false;
    }
    try {
        std::string failure = site.write([](const std::string& file) {
            if (!commandLineJob().options.quiet) jobErr() << "halyard: site page of " << file << '\n';
        });
        if (!failure.empty()) {
            failJob(kExitUnwritable, failure);
            return false;
        }
    } catch (const HlydError& e) {
        failJob(kExitUnwritable, "cannot write the site into " + folder + ": " + e.Description);
        return false;
    }
    jobOut() << targets.front().path << '\n';
    return true;
}

}  // namespace hlyd
