#include "corvane/formats/EXXMLScanner.h"

#include "corvane/platform/Console.h"
#include "corvane/platform/TextScanner.h"

#include <utility>

namespace corvane {

namespace {

using platform::TextScanner;

template <class T>
bool store(T* place, std::optional<T> found) {
    if (!found) return false;
    if (place) *place = *found;
    return true;
}

/// The same where an empty text is no failure but no value.
template <class T>
bool storeBoxed(std::optional<T>* place, std::string_view text, std::optional<T> found) {
    if (!found && !text.empty()) return false;
    if (place) *place = std::move(found);
    return true;
}

std::optional<bool> flagOf(std::string_view text) {
    if (text == EXXMLTypeBoolTrue) return true;
    if (text == EXXMLTypeBoolFalse) return false;
    return std::nullopt;
}

std::optional<std::int64_t> codeOf(const std::string& text, const EXXMLMapping* mapping) {
    if (!mapping) return TextScanner(text).scanInteger();
    // Not even where a mapping has an empty name: that is written as no value.
    return text.empty() ? std::nullopt : mapping->keyForObject(text);
}

}  // namespace

EXXMLScanner::EXXMLScanner(std::optional<std::string_view> string)
    : string_(platform::withoutOuterSpace(string.value_or(""))) {}

const EXISODateFormatter& EXXMLScanner::isoDateFormatter() {
    static const EXISODateFormatter formatter;
    return formatter;
}

bool EXXMLScanner::scanNilContent(EXValue* content) const {
    if (!string_.empty()) return false;
    if (content) *content = EXValue();
    return true;
}

bool EXXMLScanner::scanStringContent(Out<std::string> content) const {
    return storeBoxed(content, string_, string_.empty() ? std::nullopt : std::optional(string_));
}

bool EXXMLScanner::scanBoolContent(bool* content) const {
    return store(content, flagOf(string_));
}

bool EXXMLScanner::scanBoolNumberContent(Out<bool> content) const {
    return storeBoxed(content, string_, flagOf(string_));
}

bool EXXMLScanner::scanIntegerContent(std::int64_t* content) const {
    return store(content, TextScanner(string_).scanInteger());
}

bool EXXMLScanner::scanIntegerNumberContent(Out<std::int64_t> content) const {
    return storeBoxed(content, string_, TextScanner(string_).scanInteger());
}

bool EXXMLScanner::scanInt64Content(std::int64_t* content) const {
    return scanIntegerContent(content);
}

bool EXXMLScanner::scanInt64NumberContent(Out<std::int64_t> content) const {
    return scanIntegerNumberContent(content);
}

bool EXXMLScanner::scanDoubleContent(double* content) const {
    return store(content, TextScanner(string_).scanDouble());
}

bool EXXMLScanner::scanDoubleNumberContent(Out<double> content) const {
    return storeBoxed(content, string_, TextScanner(string_).scanDouble());
}

bool EXXMLScanner::scanDateContent(Out<platform::Instant> content) const {
    return storeBoxed(content, string_, isoDateFormatter().dateFromString(string_));
}

bool EXXMLScanner::scanDateOnlyContent(Out<EXDateOnly> content) const {
    return storeBoxed(content, string_, EXDateOnly::dateOnlyFromString(string_));
}

bool EXXMLScanner::scanTimeOnlyContent(Out<EXTimeOnly> content) const {
    return storeBoxed(content, string_, EXTimeOnly::timeOnlyFromString(string_));
}

bool EXXMLScanner::scanEnumContent(std::int64_t* content, const EXXMLMapping* mapping) const {
    return store(content, codeOf(string_, mapping));
}

bool EXXMLScanner::scanEnumNumberContent(Out<std::int64_t> content,
                                         const EXXMLMapping* mapping) const {
    return storeBoxed(content, string_, codeOf(string_, mapping));
}

template <class T>
bool EXXMLScanner::scanInto(EXValue* content, bool (EXXMLScanner::*scan)(Out<T>) const) const {
    std::optional<T> found;
    if (!(this->*scan)(&found)) return false;
    if (content) *content = EXValue(std::move(found));
    return true;
}

bool EXXMLScanner::scanValueContent(EXValue* content, EXXMLType type,
                                    const EXXMLMapping* mapping) const {
    switch (type) {
        case EXXMLTypeUndefined:
            platform::currentConsole().writeLine("ERROR: EXXMLTypeUndefined cannot be scanned");
            return false;
        case EXXMLTypeString:
        case EXXMLTypeCDATA:
            return scanInto(content, &EXXMLScanner::scanStringContent);
        case EXXMLTypeBool:
            return scanInto(content, &EXXMLScanner::scanBoolNumberContent);
        case EXXMLTypeInt64:
            return scanInto(content, &EXXMLScanner::scanInt64NumberContent);
        case EXXMLTypeDouble:
            return scanInto(content, &EXXMLScanner::scanDoubleNumberContent);
        case EXXMLTypeDate:
            return scanInto(content, &EXXMLScanner::scanDateContent);
        case EXXMLTypeDateOnly:
            return scanInto(content, &EXXMLScanner::scanDateOnlyContent);
        case EXXMLTypeTimeOnly:
            return scanInto(content, &EXXMLScanner::scanTimeOnlyContent);
        case EXXMLTypeEnum: {
            std::optional<std::int64_t> code;
            if (!scanEnumNumberContent(&code, mapping)) return false;
            if (content) *content = EXValue(code);
            return true;
        }
    }
    return false;
}

}  // namespace corvane
