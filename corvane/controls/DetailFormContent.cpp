#include "corvane/controls/DetailFormContent.h"

#include "corvane/views/Mirroring.h"
#include "corvane/views/TextMeasurer.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace corvane {

namespace {

using platform::Rect;
using platform::Size;

constexpr double kEndless = 1e6;
constexpr double kRowGap = 8;
constexpr double kSectionGap = 18;
constexpr double kLabelGap = 10;
constexpr double kWidestLabel = 0.4;  ///< of the width
constexpr double kHeaderMargin = 2;
constexpr double kMargin = 2;
constexpr double kScroller = 10;  ///< room for the bar over the trailing side

double wholeWidth(views::Label& label) {
    return label.preferredSizeThatFits({kEndless, kEndless}).width;
}

}  // namespace

void DetailFormContent::setSections(std::vector<DetailFormSection> sections) {
    const auto before = std::exchange(sections_, std::move(sections));
    for (const auto& view : std::vector(subviews()))
        view->removeFromSuperview();
    for (const auto& [header, rows] : std::vector(sections_)) {
        addSubview(header);
        for (const auto& row : rows) {
            addSubview(row->label);
            if (row->editor) addSubview(row->editor->view());
        }
    }
}

std::vector<std::shared_ptr<DetailFormRow>> DetailFormContent::rows() const {
    std::vector<std::shared_ptr<DetailFormRow>> all;
    for (const auto& [header, rows] : sections_)
        all.insert(all.end(), rows.begin(), rows.end());
    return all;
}

std::shared_ptr<DetailFormRow> DetailFormContent::row(std::int64_t field,
                                                      std::int64_t section) const {
    for (const auto& row : rows())
        if (row->field == field && row->section == section) return row;
    return nullptr;
}

std::shared_ptr<DetailFormRow> DetailFormContent::rowAround(const views::View& view) const {
    for (const auto& row : rows())
        if (row->editor && view.isDescendantOf(*row->editor->view())) return row;
    return nullptr;
}

// Layout.

double DetailFormContent::labelWidth(double width) const {
    double widest = 0;
    for (const auto& row : rows())
        widest = std::max(widest, wholeWidth(*row->label));
    return std::min(widest, width * kWidestLabel);
}

double DetailFormContent::layOutRow(const DetailFormRow& row, double y, double labelWidth,
                                    double width, const Place& place) const {
    const double line = DetailEditor::lineHeight();
    const double x = labelWidth > 0 ? labelWidth + kLabelGap : kMargin;
    const double room = std::max(0.0, width - x - kScroller);
    const Size size = row.editor ? row.editor->sizeForWidth(room) : Size{};
    const double height = std::max(row.leastHeight, std::max(line, size.height));
    const bool grows = row.editor && row.editor->growsWithRow();
    const double editorHeight = grows ? height : size.height;
    const double first = row.editor ? row.editor->firstLineHeight(editorHeight) : line;
    const double inset = std::floor(std::max(0.0, (first - editorHeight) / 2));
    place(*row.label, {0, y, labelWidth, first});
    if (row.editor) place(*row.editor->view(), {x, y + inset, size.width, editorHeight});
    return height;
}

double DetailFormContent::layOut(double width, const Place& place) const {
    const double labels = labelWidth(width);
    double y = kMargin;
    for (const auto& [header, rows] : sections_) {
        if (&rows != &sections_.front().rows) y += kSectionGap - kRowGap;
        if (header) {
            const double height = views::textMeasurer().lineHeight(header->font()) + kHeaderMargin;
            place(*header, {0, y, width, height});
            y += height + kRowGap;
        }
        for (const auto& row : rows)
            y += layOutRow(*row, y, labels, width, place) + kRowGap;
    }
    return y;
}

void DetailFormContent::tellWholeText(views::Label& label) {
    label.setToolTip(wholeWidth(label) > label.frame().width ? label.text() : "");
}

views::Size DetailFormContent::preferredSizeThatFits(Size available) {
    return {available.width, layOut(available.width, [](auto&, auto&) {})};
}

void DetailFormContent::placeRows() {
    const double width = bounds().width;
    const double height = layOut(width, [&](views::View& view, const Rect& frame) {
        view.setFrame(views::mirrored(frame, width));
        view.layoutIfNeeded();
    });
    for (const auto& [header, rows] : sections_) {
        if (header) tellWholeText(*header);
        for (const auto& row : rows)
            tellWholeText(*row->label);
    }
    setFrameSize({width, height});
}

}  // namespace corvane
