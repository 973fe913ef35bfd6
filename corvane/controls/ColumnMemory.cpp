#include "corvane/controls/ColumnMemory.h"

#include "corvane/controls/TabularColumns.h"
#include "corvane/platform/UserDefaults.h"
#include "corvane/preferences/HGCorvanePreferencesKeys.h"
#include "corvane/toolkit/EXValue.h"

#include <cmath>
#include <utility>

namespace corvane {

namespace {

constexpr const char* kWidths = "widths";
constexpr const char* kSortedBy = "sortedBy";
constexpr const char* kAscending = "ascending";

std::string keyFor(const std::string& name) {
    return std::string(HGCorvanePreferencesKeyPrefix) + "columns " + name;
}

platform::ValueMap widthsIn(const EXValue& kept) {
    const EXValue* widths = kept.find(kWidths);
    return widths && widths->map() ? *widths->map() : platform::ValueMap();
}

}  // namespace

void rememberColumns(const std::string& name, const TabularColumns& columns) {
    if (name.empty()) return;
    auto& settings = platform::UserDefaults::standard();
    platform::ValueMap widths = widthsIn(settings.value(keyFor(name)));
    for (const Column& column : columns.columns())
        widths.items.insert_or_assign(column.identifier, column.width);
    platform::ValueMap kept;
    kept.items.emplace(kWidths, std::move(widths));
    kept.items.emplace(kSortedBy, columns.sortIdentifier());
    kept.items.emplace(kAscending, columns.sortsAscending());
    settings.setValue(keyFor(name), std::move(kept));
}

void restoreColumns(const std::string& name, TabularColumns& columns) {
    if (name.empty()) return;
    const EXValue kept = platform::UserDefaults::standard().value(keyFor(name));
    for (const auto& [identifier, width] : widthsIn(kept).items) {
        const double points = width.realValue();
        if (identifier.text() && width.isNumber() && std::isfinite(points))
            columns.setWidth(columns.indexOf(std::string(*identifier.text())), points);
    }
    const EXValue* sortedBy = kept.find(kSortedBy);
    const EXValue* ascending = kept.find(kAscending);
    if (!sortedBy || !sortedBy->text() || !ascending) return;
    const std::size_t column = columns.indexOf(std::string(*sortedBy->text()));
    if (column != TabularColumns::kNone && columns.columns()[column].sortable)
        columns.setSorting(columns.columns()[column].identifier, ascending->booleanValue());
}

}  // namespace corvane
