#include "files/run_inputs.h"

#include "files/file_table.h"
#include "files/project_file.h"
#include "platform/os.h"

namespace hlyd {

std::vector<std::string> inputsOfThisRun() {
    std::vector<std::string> inputs;
    for (const cFileDesc& f : oFile()) inputs.push_back(f.FileName);
    for (int i = 1; i <= oProjectFiles().Count(); ++i) inputs.push_back(oProjectFiles().Item(i).FileName);
    return inputs;
}

int outputTargetProblem(const std::string& output, const std::vector<std::string>& inputs) {
    os::FileInfo target = os::fileInfo(output);
    if (!target.exists()) return 0;
    if (!target.regular()) return os::kNotRegularFile;
    for (const std::string& input : inputs)
        if (target.sameFileAs(os::fileInfo(input))) return os::kSameAsInput;
    return 0;
}

}  // namespace hlyd
