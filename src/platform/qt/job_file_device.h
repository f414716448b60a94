#pragma once
// The file a PDF job writes: a device over the system's whole-file replacement, so that the
// pages go to a temporary file beside the target and the target changes only when the job
// commits. A failed write is remembered; the job then cannot commit.
#include <QIODevice>
#include <string>

#include "platform/os.h"

namespace hlyd {

class JobFileDevice : public QIODevice {
public:
    // 0 or the errno of the temporary file that could not be made.
    int begin(const std::string& target);
    // 0 or the errno; the target is untouched unless the answer is 0.
    int commit();
    void abandon();
    int error() const { return error_; }
    bool isSequential() const override { return true; }

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char* data, qint64 size) override;

private:
    os::AtomicWriter writer_;
    int error_ = 0;
};

}  // namespace hlyd
