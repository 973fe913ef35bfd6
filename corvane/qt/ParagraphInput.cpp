#include "corvane/qt/Fonts.h"
#include "corvane/qt/Geometry.h"
#include "corvane/qt/TextInput.h"
#include "corvane/qt/TextInputStyle.h"

#include <QMimeData>
#include <QPlainTextEdit>
#include <QTextDocument>
#include <QTextOption>

namespace corvane::qt {

namespace {

class TextEdit final : public QPlainTextEdit {
  public:
    using QPlainTextEdit::QPlainTextEdit;

  protected:
    /// Qt 6.4 crashes where it takes something without a text, as the clipboard of an X server is
    /// before anything was copied.
    void insertFromMimeData(const QMimeData* source) override {
        if (source && source->hasText()) QPlainTextEdit::insertFromMimeData(source);
    }
};

class ParagraphInput final : public TextInput {
  public:
    ParagraphInput(QWidget& parent, TextChanged changed) : edit_(new TextEdit(&parent)) {
        edit_->setFrameShape(QFrame::NoFrame);
        // The field grows with its text, and what is around it scrolls.
        edit_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        edit_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        edit_->document()->setDocumentMargin(0);
        edit_->setAcceptDrops(false);
        edit_->viewport()->setAcceptDrops(false);
        QObject::connect(edit_, &QPlainTextEdit::textChanged, edit_, std::move(changed));
    }

    QWidget& widget() override { return *edit_; }
    QWidget& surface() override { return *edit_->viewport(); }
    void takeStyleOf(const views::TextField& field, platform::Appearance appearance) override {
        edit_->setFont(fontFace(field.font()).qFont);
        edit_->setPalette(paletteOf(field, edit_->palette(), appearance));
        // The widget itself is laid out from the left: the other way round it would scroll by the
        // space at the end of a line that just fits.
        QTextOption option(qAlignment(field.alignment()));
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        edit_->document()->setDefaultTextOption(option);
        edit_->setPlaceholderText(qString(field.placeholderString()));
        edit_->setAccessibleName(qString(field.accessibilityName()));
    }
    QString text() const override {
        // The widget's own plain text lets lines break at blanks where they must not.
        QString text = edit_->document()->toRawText();
        for (const QChar end : {QChar(QChar::ParagraphSeparator), QChar(QChar::LineSeparator)})
            text.replace(end, QLatin1Char('\n'));
        return text;
    }
    void setText(const QString& text) override { edit_->setPlainText(text); }
    void insert(const QString& text) override { edit_->insertPlainText(text); }
    Selection selection() const override {
        const QTextCursor cursor = edit_->textCursor();
        return {cursor.selectionStart(), cursor.selectionEnd()};
    }
    void setSelection(Selection selection) override {
        QTextCursor cursor = edit_->textCursor();
        cursor.setPosition(selection.start);
        cursor.setPosition(selection.end, QTextCursor::KeepAnchor);
        edit_->setTextCursor(cursor);
    }
    int overhang() const override { return 0; }

  private:
    QPlainTextEdit* edit_;
};

}  // namespace

std::unique_ptr<TextInput> makeParagraphInput(QWidget& parent, TextChanged changed) {
    return std::make_unique<ParagraphInput>(parent, std::move(changed));
}

}  // namespace corvane::qt
