// What a field shows beside it to pick a value from: a grid of cells, of which one is the value and
// another one is where the keys are. One thread, the window's.
#pragma once

#include "corvane/platform/Color.h"
#include "corvane/views/View.h"

#include <memory>
#include <string>
#include <vector>

namespace corvane {

/// It takes the focus only where it was told to; a field that shows it passes keys on instead.
class ChooserView : public views::View {
  public:
    using views::View::View;

    /// Moves the highlight, or chooses what is highlighted. False for keys that do neither.
    virtual bool moveByKey(const views::KeyEvent& event) = 0;
    /// Whether the keys were used here since the value changed.
    virtual bool hasHighlight() const = 0;
    virtual bool chooseHighlighted() = 0;

    bool takesFocus() const { return takesFocus_; }
    void setTakesFocus(bool takesFocus) { takesFocus_ = takesFocus; }

    platform::Color headerBackgroundColor() const;

    void draw(views::Canvas& canvas, const views::Rect& dirty) override;
    bool keyDown(const views::KeyEvent& event) override;
    bool acceptsFirstResponder() const override { return takesFocus_; }
    views::Role accessibilityRole() const override { return views::Role::Group; }

  protected:
    struct CellState {
        std::string text;
        bool dimmed = false;
        bool shaded = false;
        bool ringed = false;
        bool selected = false;
        bool highlighted = false;

        friend bool operator==(const CellState&, const CellState&) = default;
    };

    /// Adds one to the end.
    void addCell(const views::Rect& frame);
    void setCellState(std::size_t index, CellState state);

    virtual void chooseCell(std::size_t index) = 0;
    virtual std::string cellName(std::size_t index) const = 0;  ///< for assistive technology
    virtual std::string cellValue(std::size_t) const { return {}; }

  private:
    class Cell;

    std::vector<std::shared_ptr<Cell>> cells_;
    bool takesFocus_ = false;
};

}  // namespace corvane
