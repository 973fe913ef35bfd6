// A row that shows a task: a box to check it off, its badge, title, note and due day. Title and
// note can be edited. One thread: the one that draws.
#pragma once

#include "corvane/table/CVMacTableViewCell.h"

#include "apps/gallery/ExampleTasks.h"

#include <memory>
#include <string>

namespace corvane::views {
class Label;
}

namespace corvane::gallery {

class TaskCell final : public CVMacTableViewCell {
  public:
    explicit TaskCell(const CVIndexPath& path) : CVMacTableViewCell(path) {}

    /// The first time also makes the controls.
    void show(const ExampleTask& task);
    const std::string& title() const;
    const std::string& note() const;

    double rowHeightForContentWidth(double width) override;
    views::Rect rectForAccessoryViewWithCellWidth(double width) override;
    void layoutContentView(views::View& contentView) override;

  private:
    void makeControls();
    std::shared_ptr<views::TextView> makeField(const char* name);
    double titleHeight(double contentWidth) const;
    double noteHeight(double contentWidth) const;

    std::shared_ptr<views::ImageView> badge_;
    std::shared_ptr<views::TextView> title_;
    std::shared_ptr<views::TextView> note_;
    std::shared_ptr<views::Label> due_;
};

}  // namespace corvane::gallery
