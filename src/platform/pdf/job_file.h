#pragma once
// The file a PDF job writes: a sink over the system's whole-file replacement, so that the
// pages go to a temporary file beside the target and the target changes only when the job
// commits. A failed write is remembered; the job then cannot commit.
#include <string>

#include "platform/os.h"
#include "platform/pdf/byte_sink.h"

namespace hlyd {

class JobFile : public ByteSink {
public:
    // 0 or the errno of the temporary file that could not be made.
    int begin(const std::string& target);
    // 0 or the errno; the target is untouched unless the answer is 0.
    int commit();
    void abandon();
    int error() const { return error_; }
    void write(std::string_view bytes) override;

private:
    os::AtomicWriter writer_;
    int error_ = 0;
    bool open_ = false;
};

}  // namespace hlyd
