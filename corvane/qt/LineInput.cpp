#include "corvane/qt/Fonts.h"
#include "corvane/qt/Geometry.h"
#include "corvane/qt/TextInput.h"
#include "corvane/qt/TextInputStyle.h"

#include <QLineEdit>
#include <limits>

namespace corvane::qt {

namespace {

/// What the widget leaves free at its sides of its own accord.
constexpr int kInnerMargin = 2;

class LineInput final : public TextInput {
  public:
    LineInput(QWidget& parent, TextChanged changed) : edit_(new QLineEdit(&parent)) {
        edit_->setFrame(false);
        // Fields have no limit, and what is beyond the widget's own would be lost.
        edit_->setMaxLength(std::numeric_limits<int>::max());
        // What is dragged over it is for the row around it.
        edit_->setAcceptDrops(false);
        QObject::connect(edit_, &QLineEdit::textChanged, edit_, std::move(changed));
    }

    QWidget& widget() override { return *edit_; }
    QWidget& surface() override { return *edit_; }
    void takeStyleOf(const views::TextField& field, platform::Appearance appearance) override {
        edit_->setLayoutDirection(layoutDirection());
        edit_->setFont(fontFace(field.font()).qFont);
        edit_->setPalette(paletteOf(field, edit_->palette(), appearance));
        edit_->setAlignment(qAlignment(field.alignment()) | Qt::AlignVCenter);
        edit_->setPlaceholderText(qString(field.placeholderString()));
        edit_->setEchoMode(field.isSecure() ? QLineEdit::Password : QLineEdit::Normal);
        edit_->setAccessibleName(qString(field.accessibilityName()));
    }
    QString text() const override { return edit_->text(); }
    void setText(const QString& text) override { edit_->setText(text); }
    void insert(const QString& text) override { edit_->insert(text); }
    Selection selection() const override {
        const int position = edit_->cursorPosition();
        if (!edit_->hasSelectedText()) return {position, position};
        return {edit_->selectionStart(), edit_->selectionEnd()};
    }
    void setSelection(Selection selection) override {
        if (selection.start == selection.end) {
            edit_->setCursorPosition(selection.start);
            edit_->deselect();
        } else {
            edit_->setSelection(selection.start, selection.end - selection.start);
        }
    }
    int overhang() const override { return kInnerMargin; }

  private:
    QLineEdit* edit_;
};

}  // namespace

std::unique_ptr<TextInput> makeLineInput(QWidget& parent, TextChanged changed) {
    return std::make_unique<LineInput>(parent, std::move(changed));
}

}  // namespace corvane::qt
