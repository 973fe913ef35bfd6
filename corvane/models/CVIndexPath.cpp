#include "corvane/models/CVIndexPath.h"

#include "corvane/platform/KeyedArchiver.h"
#include "corvane/platform/KeyedUnarchiver.h"

#include <algorithm>
#include <iterator>

namespace corvane {

using platform::IndexPath;
using platform::Pasteboard;
using platform::PasteboardItem;
using platform::Value;

namespace {

template <class To, class From>
std::optional<std::vector<To>> convertedArray(const std::optional<std::vector<From>>& paths,
                                              To (*convert)(const From&)) {
    if (!paths) return std::nullopt;
    std::vector<To> result;
    result.reserve(paths->size());
    std::transform(paths->begin(), paths->end(), std::back_inserter(result), convert);
    return result;
}

template <class To, class From>
std::optional<std::set<To>> convertedSet(const std::optional<std::set<From>>& paths,
                                         To (*convert)(const From&)) {
    if (!paths) return std::nullopt;
    std::set<To> result;
    for (const From& path : *paths)
        result.insert(result.end(), convert(path));
    return result;
}

CVIndexPath fromPlatform(const IndexPath& path) {
    return path;
}
IndexPath toPlatform(const CVIndexPath& path) {
    return path.toNSIndexPath();
}

}  // namespace

CVIndexPath::CVIndexPath(platform::KeyedUnarchiver& coder)
    : path_{coder.decodeInteger(CVIndexPathSection), coder.decodeInteger(CVIndexPathRow)} {
    // The text is looked for under the key of the row, where a number stands, and so no path has a
    // text that comes from an archive. Programs count on it: a dragged row is matched by its place,
    // and its text is only for those who cannot read the path.
    for (const auto& field : coder.decodeFields())
        if (field.key.view() == CVIndexPathRow) pasteboardText_ = field.value.text();
}

std::optional<CVIndexPath> CVIndexPath::withPasteboardPropertyList(const Value&, std::string_view) {
    return std::nullopt;
}

std::optional<CVIndexPath> CVIndexPath::fromNSIndexPath(const std::optional<IndexPath>& path) {
    return path ? std::optional<CVIndexPath>(*path) : std::nullopt;
}

std::optional<IndexPath> CVIndexPath::toNSIndexPath(const std::optional<CVIndexPath>& path) {
    return path ? std::optional(path->path_) : std::nullopt;
}

CVIndexPath::Array<CVIndexPath> CVIndexPath::fromNSIndexPathArray(const Array<IndexPath>& paths) {
    return convertedArray(paths, fromPlatform);
}

CVIndexPath::Set<CVIndexPath> CVIndexPath::fromNSIndexPathSet(const Set<IndexPath>& paths) {
    return convertedSet(paths, fromPlatform);
}

CVIndexPath::Array<IndexPath> CVIndexPath::toNSIndexPathArray(const Array<CVIndexPath>& paths) {
    return convertedArray(paths, toPlatform);
}

CVIndexPath::Set<IndexPath> CVIndexPath::toNSIndexPathSet(const Set<CVIndexPath>& paths) {
    return convertedSet(paths, toPlatform);
}

int CVIndexPath::compare(const CVIndexPath& other) const {
    const std::strong_ordering order = *this <=> other;
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

void CVIndexPath::encodeWithCoder(platform::KeyedArchiver& coder) const {
    coder.encodeInteger(CVIndexPathSection, section());
    coder.encodeInteger(CVIndexPathRow, row());
    coder.encodeObject(CVIndexPathPasteboardText, pasteboardText_);
}

const platform::ArchiveClasses& CVIndexPath::archiveClasses() {
    static const platform::ArchiveClasses classes = platform::ArchiveClasses().add<CVIndexPath>();
    return classes;
}

std::vector<std::string> CVIndexPath::writableTypes() const {
    return {std::string(CVPasteboardTypeIndexPath), std::string(platform::kPasteboardTypeString)};
}

Value CVIndexPath::pasteboardValueForType(std::string_view type) const {
    if (type == platform::kPasteboardTypeString) return pasteboardText_;
    if (type == CVPasteboardTypeIndexPath) return platform::KeyedArchiver::archivedData(*this);
    return nullptr;
}

std::vector<std::string> CVIndexPath::readableTypes() {
    return {std::string(CVPasteboardTypeIndexPath)};
}

std::optional<CVIndexPath> CVIndexPath::fromPasteboardItem(const PasteboardItem& item) {
    const platform::Bytes* archive = item.valueForType(CVPasteboardTypeIndexPath).data();
    if (!archive) return std::nullopt;
    auto path = platform::KeyedUnarchiver::unarchiveData(*archive, archiveClasses())
                    .objectAs<CVIndexPath>();
    return path ? std::optional<CVIndexPath>(*path) : std::nullopt;
}

std::vector<CVIndexPath> CVIndexPath::fromPasteboard(const Pasteboard& pasteboard) {
    std::vector<CVIndexPath> paths;
    for (const PasteboardItem& item : pasteboard.items())
        if (auto path = fromPasteboardItem(item)) paths.push_back(*std::move(path));
    return paths;
}

}  // namespace corvane
