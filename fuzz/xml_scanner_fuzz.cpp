// Whatever the text, the scanner gives a value of the type or refuses it, and a value that it gives
// can be written so that it scans back.
#include "corvane/formats/EXXMLScanner.h"
#include "corvane/formats/EXXMLWriter.h"
#include "corvane/formats/HGCorvaneBackupConstants.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>

using namespace corvane;

namespace {

void require(bool truth) {
    if (!truth) std::abort();
}

std::optional<EXValue> scanned(std::string_view text, EXXMLType type) {
    EXValue value;
    const auto& names = HGCorvaneBackupConstants::taskRepeatMapping();
    if (!EXXMLScanner(text).scanValueContent(&value, type, &names)) return std::nullopt;
    return value;
}

/// What the element holds, a CDATA section as its plain text.
std::string written(const EXValue& value, EXXMLType type) {
    platform::BytesSink sink;
    EXXMLWriter writer(sink);
    require(writer.openAutoCreating(false));
    const auto& names = HGCorvaneBackupConstants::taskRepeatMapping();
    require(writer.writeElementWithValueContent("v", value, type, &names) && writer.close());
    const auto bytes = sink.take();
    const std::string document(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    const auto start = document.find("<v>") + 3;
    auto text = document.substr(start, document.size() - start - 5);
    const bool isSection = type == EXXMLTypeCDATA && !text.empty();
    return isSection ? text.substr(9, text.size() - 12) : text;
}

/// Years before 0, and those beyond the packed number, leave no day to write; nor have numbers
/// their decimals after the sixth.
bool hasExactText(const EXValue& value, EXXMLType type) {
    if (type == EXXMLTypeDouble) return false;
    const auto* day = value.day();
    return !day || (day->integerValue() >= 0 && day->month() >= 1 && day->month() <= 12 &&
                    day->day() >= 1 && day->day() <= 31);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const auto type = static_cast<EXXMLType>(1 + static_cast<std::uint8_t>(data[0] - '1') % 9);
    const auto value = scanned({reinterpret_cast<const char*>(data + 1), size - 1}, type);
    if (!value) return 0;
    const auto text = written(*value, type);
    if (hasExactText(*value, type)) require(scanned(text, type) == value);
    if (type != EXXMLTypeDouble || value->isNull()) return 0;
    const auto again = scanned(text, type).value();
    require(written(again, type) == text);
    require(std::abs(again.realValue() - value->realValue()) <=
            5e-7 + std::abs(value->realValue()) * 1e-15);
    return 0;
}
