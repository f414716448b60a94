#include "platform/qt/job_file_device.h"

#include <cerrno>

namespace hlyd {

int JobFileDevice::begin(const std::string& target) {
    error_ = writer_.begin(target);
    if (error_ == 0) open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    return error_;
}

qint64 JobFileDevice::writeData(const char* data, qint64 size) {
    if (error_ != 0) return -1;
    if (writer_.write(std::string_view(data, static_cast<std::size_t>(size)))) return size;
    error_ = writer_.error() != 0 ? writer_.error() : EIO;
    return -1;
}

int JobFileDevice::commit() {
    if (isOpen()) close();
    if (error_ != 0) {
        writer_.abandon();
        return error_;
    }
    return error_ = writer_.commit();
}

void JobFileDevice::abandon() {
    if (isOpen()) close();
    writer_.abandon();
}

}  // namespace hlyd
