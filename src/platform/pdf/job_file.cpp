#include "platform/pdf/job_file.h"

#include <cerrno>

namespace hlyd {

int JobFile::begin(const std::string& target) {
    error_ = writer_.begin(target);
    open_ = error_ == 0;
    return error_;
}

void JobFile::write(std::string_view bytes) {
    if (error_ != 0 || !open_) return;
    if (!writer_.write(bytes)) error_ = writer_.error() != 0 ? writer_.error() : EIO;
}

int JobFile::commit() {
    open_ = false;
    if (error_ != 0) {
        writer_.abandon();
        return error_;
    }
    return error_ = writer_.commit();
}

void JobFile::abandon() {
    open_ = false;
    writer_.abandon();
}

}  // namespace hlyd
