// Panes side by side or one above the other, between which the user moves dividers.
#pragma once

#include "corvane/views/CompoundView.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace corvane {

/// The last pane that stretches, or the last of all where none does, takes what the others leave.
/// Where there is not enough room the panes give way, stretching ones first, then from the last to
/// the first, down to their minimum; below that only where even the minima do not fit.
///
/// A divider is dragged, or moved by the arrow keys while it has the focus (Home and End: as far as
/// it goes). A double click or Return collapses the pane beside it that can collapse, and brings it
/// back; so does dragging it far below its minimum. A collapsed pane is hidden.
class CVMacSplitView : public views::CompoundView {
  public:
    enum class Arrangement { SideBySide, Stacked };

    struct Pane {
        double minimum = 0;  ///< in points along the arrangement, like the next one
        double preferred = 200;
        bool stretches = false;
        bool collapsible = false;
        /// Where Tab goes in the pane; null for the pane's view itself.
        std::shared_ptr<views::View> keyView;
    };

    explicit CVMacSplitView(Arrangement arrangement = Arrangement::SideBySide);
    ~CVMacSplitView() override;

    Arrangement arrangement() const { return arrangement_; }
    void setArrangement(Arrangement arrangement);

    /// Null is passed over, and so is a view that is a pane already, or holds this one.
    void addPane(std::shared_ptr<views::View> view, Pane pane);
    void addPane(std::shared_ptr<views::View> view);
    void removePane(const views::View& view);
    std::int64_t paneCount() const { return static_cast<std::int64_t>(panes_.size()); }
    std::shared_ptr<views::View> paneAtIndex(std::int64_t index) const;  ///< null for no index

    // 0, false or nothing for what is no index.

    /// As it is shown: 0 of a collapsed pane.
    double sizeOfPane(std::int64_t index) const;
    /// As if its divider were moved there.
    void setSizeOfPane(std::int64_t index, double size);
    bool isPaneCollapsed(std::int64_t index) const;
    /// Nothing where the pane cannot.
    void setPaneCollapsed(std::int64_t index, bool collapsed);

    /// The divider behind the pane, for its accessibility and the focus; null where there is none.
    std::shared_ptr<views::View> dividerAfterPane(std::int64_t index) const;

    /// After the user or the program has moved a divider, collapsed a pane or brought it back.
    std::function<void()> didResizePanes;

    /// Remembers sizes and collapsed panes under the name among the user's settings, and takes over
    /// what is remembered there for as many panes, in the next layout and whenever panes have come
    /// or gone. What is damaged is passed over. Empty for none.
    void setAutosaveName(std::string name);
    const std::string& autosaveName() const { return autosaveName_; }

    views::Size preferredSizeThatFits(views::Size available) override;
    void applyLayout() override;
    views::Role accessibilityRole() const override { return views::Role::Group; }

  private:
    class Divider;
    struct Slot {
        std::shared_ptr<views::View> view;
        Pane pane;
        double wanted = 0;
        double shown = 0;
        double beforeDrag = 0;  ///< to come back to, when a drag collapses the pane
        bool collapsed = false;
    };

    bool isIndex(std::int64_t index) const { return index >= 0 && index < paneCount(); }
    Slot& slot(std::int64_t index) { return panes_[static_cast<std::size_t>(index)]; }
    const Slot& slot(std::int64_t index) const { return panes_[static_cast<std::size_t>(index)]; }

    bool isSideBySide() const { return arrangement_ == Arrangement::SideBySide; }
    double lengthForPanes() const;
    /// Along the arrangement, from the leading or upper side.
    double positionOf(std::int64_t divider) const;
    double alongOf(views::Point point) const;
    views::Rect placeAlong(double start, double size) const;

    void willDrag();
    /// The sizes shown become those wanted.
    void takeShownSizes();
    void moveDivider(std::int64_t divider, double position, bool mayCollapse);
    bool dragsOutOfCollapse(std::int64_t pane, double size);
    /// -1 for none.
    std::int64_t collapsibleBeside(std::int64_t divider) const;
    void toggleBeside(std::int64_t divider);
    bool setCollapsed(std::int64_t pane, bool collapsed);
    void sizesDidChange();
    void panesDidChange();
    void save() const;
    void restore();

    Arrangement arrangement_;
    std::vector<Slot> panes_;
    std::vector<std::shared_ptr<Divider>> dividers_;
    std::string autosaveName_;
    bool restores_ = false;
};

}  // namespace corvane
