// What scrolls in a detail form: the names of the sections, and a row for each field with its label
// and its editor. Of the form alone; one thread, the window's.
#pragma once

#include "corvane/controls/DetailEditor.h"
#include "corvane/views/Label.h"
#include "corvane/views/View.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace corvane {

struct DetailFormRow {
    std::int64_t field = 0;
    std::int64_t section = 0;
    CVDetailEditorType type = CVDetailEditorTypeText;
    double leastHeight = 0;  ///< 0 for that of the editor
    std::shared_ptr<views::Label> label;
    std::unique_ptr<DetailEditor> editor;  ///< null for a field of which only the label shows
    EXValue shown;                         ///< by the editor, or committed since
    std::string textBefore;                ///< in the field that is edited, before it was typed in
    bool isTyped = false;                  ///< and not committed
    bool isStale = false;                  ///< told of another value meanwhile
};

struct DetailFormSection {
    std::shared_ptr<views::Label> header;  ///< null for a section without a name
    std::vector<std::shared_ptr<DetailFormRow>> rows;
};

/// Labels stand in a column of their own at the leading side.
class DetailFormContent final : public views::View {
  public:
    void setSections(std::vector<DetailFormSection> sections);
    const std::vector<DetailFormSection>& sections() const { return sections_; }
    std::vector<std::shared_ptr<DetailFormRow>> rows() const;
    /// Null where there is none.
    std::shared_ptr<DetailFormRow> row(std::int64_t field, std::int64_t section) const;
    /// The one in whose editor the view is.
    std::shared_ptr<DetailFormRow> rowAround(const views::View& view) const;

    views::Size preferredSizeThatFits(views::Size available) override;
    /// For the width of its frame, whose height it takes.
    void placeRows();

    /// As the tool tip of a label that cuts it off.
    static void tellWholeText(views::Label& label);

  private:
    using Place = std::function<void(views::View&, const views::Rect&)>;
    double layOut(double width, const Place& place) const;
    double layOutRow(const DetailFormRow& row, double y, double labelWidth, double width,
                     const Place& place) const;
    double labelWidth(double width) const;

    std::vector<DetailFormSection> sections_;
};

}  // namespace corvane
