#include "corvane/qt/ViewValues.h"

#include "corvane/qt/Geometry.h"

#include <QVariant>
#include <utility>

namespace corvane::qt {

QString ViewText::whole() const {
    const auto view = view_.lock();
    return view ? qString(view->accessibilityValue()) : QString();
}

QString ViewText::takeTold() {
    return std::exchange(told_, whole());
}

void ViewText::selection(int, int* start, int* end) const {
    *start = *end = 0;
}

QString ViewText::text(int start, int end) const {
    return whole().mid(start, end < 0 ? -1 : end - start);
}

int ViewText::characterCount() const {
    return static_cast<int>(whole().size());
}

QString ViewText::attributes(int, int* start, int* end) const {
    *start = 0;
    *end = characterCount();
    return {};
}

QVariant ViewNumber::maximumValue() const {
    const auto view = view_.lock();
    const bool isDivider = view && view->accessibilityRole() == views::Role::Splitter;
    const views::View* around = isDivider ? view->superview() : nullptr;
    if (!around) return 100.0;
    const bool isUpright = view->frame().height > view->frame().width;
    return isUpright ? around->frame().width : around->frame().height;
}

std::optional<double> ViewNumber::number() const {
    const auto view = view_.lock();
    return view ? view->accessibilityNumber() : std::nullopt;
}

}  // namespace corvane::qt
