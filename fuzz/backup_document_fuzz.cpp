// Whatever the bytes, they are a document or are refused. What was read can be written, is then
// read as an equal document, and is written as the same text.
#include "apps/document/BackupFile.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

using namespace corvane::backup;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const auto document = parseBackupDocument(bytes, "input", nullptr);
    if (!document) return 0;
    const auto text = textOfBackupDocument(*document, nullptr);
    if (!text) std::abort();
    const auto again = parseBackupDocument(*text, "output", nullptr);
    if (!again || *again != *document || textOfBackupDocument(*again, nullptr) != text) {
        std::abort();
    }
    return 0;
}
