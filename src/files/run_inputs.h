#pragma once
// The files this run reads: the open files, projects and groups. No output may replace one.
#include <string>
#include <vector>

namespace hlyd {

std::vector<std::string> inputsOfThisRun();

// 0 when `output` may be written: it is no input of this run (the same file, however named) and
// no directory, FIFO, socket or device. Otherwise the reason, as an errno value of the port.
int outputTargetProblem(const std::string& output, const std::vector<std::string>& inputs);

}  // namespace hlyd
