// Shows a part of a view that may be larger than itself. Scrollers lie over it and take no room.
#pragma once

#include "corvane/views/View.h"

namespace corvane::views {

struct EdgeInsets {
    double top = 0;
    double left = 0;
    double bottom = 0;
    double right = 0;

    friend constexpr bool operator==(const EdgeInsets&, const EdgeInsets&) = default;
};

/// Posted by a scroll view, which is the sender, after its size or its insets have changed.
inline constexpr std::string_view kScrollViewFrameDidChange = "ScrollViewFrameDidChange";
inline constexpr std::string_view kScrollViewInsetsDidChange = "ScrollViewInsetsDidChange";

/// The document's frame has as its origin how far it is scrolled away. A document that grows keeps
/// what is visible; one that shrinks is pulled in.
class ScrollView : public View {
  public:
    using View::View;

    const std::shared_ptr<View>& documentView() const { return documentView_; }
    void setDocumentView(const std::shared_ptr<View>& view);

    bool hasBorder() const { return hasBorder_; }
    void setHasBorder(bool hasBorder);
    /// What is there for the document, in a scroll view of its size: all but the border.
    Size contentSize() const;
    const EdgeInsets& contentInsets() const { return contentInsets_; }
    void setContentInsets(const EdgeInsets& insets);

    /// The part of the document that shows, in the document's coordinates; may reach beyond it.
    Rect documentVisibleRect() const;
    /// Brings the point of the document to the upper left corner, as far as there is something to
    /// scroll.
    void scrollTo(Point point);
    void scrollBy(double dx, double dy);
    /// Scrolls as little as it takes. Of what is larger than the view, the beginning shows.
    void scrollToShow(const Rect& rectOfDocument);
    /// The least and the greatest upper left corner.
    Point leastOrigin() const;
    Point greatestOrigin() const;

    bool clipsToBounds() const override { return true; }
    void draw(Canvas& canvas, const Rect& dirty) override;

  protected:
    void frameDidChange(const Rect& before) override;
    void subviewFrameDidChange(View& view) override;

  private:
    double border() const { return hasBorder_ ? 1 : 0; }

    std::shared_ptr<View> documentView_;
    EdgeInsets contentInsets_;
    bool hasBorder_ = false;
};

}  // namespace corvane::views
