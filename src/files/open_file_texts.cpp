#include "files/open_file_texts.h"

#include <map>

#include "analysis/source_file.h"
#include "files/file_table.h"
#include "files/files_state.h"

namespace hlyd {

namespace {

std::map<std::string, std::shared_ptr<const RecordTexts>>& kept() { return filesState().openFileTexts; }

std::shared_ptr<const RecordTexts> readLines(const std::string& fileName) {
    SourceFile file;
    if (file.open(fileName) != 0) return nullptr;
    auto texts = std::make_shared<RecordTexts>();
    texts->reserve(static_cast<std::size_t>(file.size()));  // grown, the buffer would keep its old ones
    for (std::int32_t record = 1; !file.atEnd(); ++record) texts->set(record, file.readLine());
    return texts;
}

}  // namespace

void keepOpenFileTexts(const std::string& fileName, std::shared_ptr<const RecordTexts> texts) {
    kept()[fileName] = std::move(texts);
}

std::shared_ptr<const RecordTexts> openFileTexts(const std::string& fileName) {
    auto found = kept().find(fileName);
    if (found != kept().end()) return found->second;
    auto texts = readLines(fileName);
    if (texts) kept()[fileName] = texts;
    return texts;
}

void forgetClosedFileTexts() {
    for (auto it = kept().begin(); it != kept().end();) {
        bool open = false;
        for (const cFileDesc& entry : oFile()) open = open || entry.FileName == it->first;
        it = open ? std::next(it) : kept().erase(it);
    }
}

}  // namespace hlyd
