#pragma once
// Where a written file's bytes go: a job's file, or memory in a test.
#include <string_view>

namespace hlyd {

class ByteSink {
public:
    virtual ~ByteSink() = default;
    virtual void write(std::string_view bytes) = 0;
};

}  // namespace hlyd
