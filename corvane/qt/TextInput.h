// A widget of the desktop that edits text, as the live editor uses it. The main thread.
#pragma once

#include "corvane/platform/Color.h"

#include <QString>
#include <functional>
#include <memory>

class QWidget;

namespace corvane::views {
class TextField;
}

namespace corvane::qt {

/// Positions count UTF-16 units. The widget belongs to the parent widget it was made for.
class TextInput {
  public:
    struct Selection {
        int start = 0;
        int end = 0;
        friend bool operator==(const Selection&, const Selection&) = default;
    };

    virtual ~TextInput() = default;
    virtual QWidget& widget() = 0;
    /// Who gets the keys and the pointer: the widget, or what fills it.
    virtual QWidget& surface() = 0;
    /// Looks like the field: letters, alignment, colors, and how much is told of the text.
    virtual void takeStyleOf(const views::TextField& field, platform::Appearance appearance) = 0;
    virtual QString text() const = 0;
    /// Forgets what could be undone.
    virtual void setText(const QString& text) = 0;
    virtual void insert(const QString& text) = 0;
    virtual Selection selection() const = 0;
    virtual void setSelection(Selection selection) = 0;
    /// How far the widget reaches beyond the text at the left and the right, for its cursor.
    virtual int overhang() const = 0;
};

using TextChanged = std::function<void()>;

/// For one line. Calls when the text has changed, by whomever.
std::unique_ptr<TextInput> makeLineInput(QWidget& parent, TextChanged changed);
/// For several lines, broken at the width.
std::unique_ptr<TextInput> makeParagraphInput(QWidget& parent, TextChanged changed);

}  // namespace corvane::qt
