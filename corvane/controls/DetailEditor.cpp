#include "corvane/controls/DetailEditor.h"

#include "corvane/controls/CVMacDateField.h"
#include "corvane/controls/CVMacPopUpChoice.h"
#include "corvane/controls/CVMacRadioGroup.h"
#include "corvane/controls/CVMacSwitch.h"
#include "corvane/controls/CVMacTimeOnlyField.h"
#include "corvane/controls/DayAndTimeField.h"
#include "corvane/controls/OutputDateFormatter.h"
#include "corvane/dates/EXCalendar.h"
#include "corvane/platform/TypedNumber.h"
#include "corvane/views/Label.h"
#include "corvane/views/TextMeasurer.h"
#include "corvane/views/TextView.h"
#include "corvane/vocabulary/EXLocalizable.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <type_traits>

namespace corvane {

namespace {

using platform::DateStyle;
using platform::Size;

constexpr double kEndless = 1e6;
constexpr double kWidestLine = 420;
constexpr double kDayWidth = 170;
constexpr double kTimeWidth = 110;
constexpr double kLeastLines = 3;
constexpr double kMostLines = 12;
constexpr double kMarginY = 4;

// Values as the editors take them.

std::optional<platform::Instant> instantOf(const EXValue& value) {
    if (const auto* instant = value.instant()) return *instant;
    const auto* day = value.day();
    if (!day || *day == EXDateOnly()) return std::nullopt;
    return EXCalendar::currentCalendar().dateForDateOnly(*day);
}

std::optional<EXDateOnly> dayOf(const EXValue& value) {
    if (const auto* instant = value.instant())
        return EXCalendar::currentCalendar().dateOnlyForDate(*instant);
    const auto* day = value.day();
    return day && *day != EXDateOnly() ? std::optional(*day) : std::nullopt;
}

std::optional<EXTimeOnly> timeOf(const EXValue& value) {
    if (const auto* instant = value.instant())
        return EXCalendar::currentCalendar().timeOnlyForDate(*instant);
    const auto* time = value.time();
    return time ? std::optional(*time) : std::nullopt;
}

std::string textOfInstant(platform::Instant instant, DateStyle date, DateStyle time) {
    return OutputDateFormatter(platform::currentLocale(), date, time).stringFromDate(instant);
}

// Editors.

class SecureField final : public views::TextField {
  public:
    bool isSecure() const override { return true; }
};

class TextEditor : public DetailEditor {
  public:
    TextEditor(std::shared_ptr<views::TextField> field, const Field& options, const Commit& commit)
        : DetailEditor(field), field_(*field) {
        field_.setPlaceholderString(options.placeholder);
        field_.setAction([commit](auto&) { commit(); });
    }
    void setValue(const EXValue& value) override { field_.setStringValue(textOfValue(value)); }
    EXValue value() const override { return field_.stringValue(); }
    void setEditable(bool editable) override {
        field_.setEnabled(editable);
        field_.setEditable(editable);
    }
    Size sizeForWidth(double width) const override {
        return {std::min(width, kWidestLine), lineHeight()};
    }

  protected:
    const views::TextField& field() const { return field_; }

  private:
    views::TextField& field_;
};

class LinesEditor final : public TextEditor {
  public:
    LinesEditor(const Field& options, const Commit& commit)
        : TextEditor(std::make_shared<views::TextView>(), options, commit) {}
    /// Grows with its text, within bounds.
    Size sizeForWidth(double width) const override {
        const Size size = TextEditor::sizeForWidth(width);
        const double line = views::textMeasurer().lineHeight(field().font());
        const double text = static_cast<const views::TextView&>(field()).preferredHeightForWidth(
            std::min(width, kWidestLine));
        return {size.width,
                std::clamp(text, kLeastLines * line + kMarginY, kMostLines * line + kMarginY)};
    }
    bool growsWithRow() const override { return true; }
};

/// An editor whose view is a control with a value of one kind.
template <class Control>
class ControlEditor : public DetailEditor {
  public:
    ControlEditor(const Commit& commit) : DetailEditor(std::make_shared<Control>()) {
        control().setAction([commit](auto&) { commit(); });
    }
    void setEditable(bool editable) override { control().setEnabled(editable); }

  protected:
    Control& control() const { return static_cast<Control&>(*view()); }
};

template <class Control>
class ChoiceEditor final : public ControlEditor<Control> {
  public:
    ChoiceEditor(const DetailEditor::Field& options, const DetailEditor::Commit& commit)
        : ControlEditor<Control>(commit) {
        this->control().setChoiceList(options.choices);
        this->control().setIconMap(options.icons);
        if constexpr (std::is_same_v<Control, CVMacPopUpChoice>)
            this->control().setPlaceholder(options.placeholder);
    }
    void setValue(const EXValue& value) override { this->control().setValue(value); }
    EXValue value() const override { return this->control().value(); }
    double firstLineHeight(double height) const override {
        if constexpr (std::is_same_v<Control, CVMacRadioGroup>)
            if (const auto rows = this->control().rowCount(); rows > 0)
                return height / static_cast<double>(rows);
        return DetailEditor::firstLineHeight(height);
    }
};

class SwitchEditor final : public ControlEditor<CVMacSwitch> {
  public:
    using ControlEditor::ControlEditor;
    void setValue(const EXValue& value) override { control().setOn(value.booleanValue()); }
    EXValue value() const override { return control().isOn(); }
};

/// Of days, of times and of both.
template <class Field>
class FieldEditor : public ControlEditor<Field> {
  public:
    FieldEditor(const DetailEditor::Field& options, const DetailEditor::Commit& commit,
                double widest)
        : ControlEditor<Field>(commit), widest_(widest) {
        this->control().setPlaceholderString(options.placeholder);
    }
    Size sizeForWidth(double width) const override {
        return {std::min(width, widest_), DetailEditor::lineHeight()};
    }

  private:
    double widest_;
};

class MomentEditor final : public FieldEditor<CVMacDateField> {
  public:
    MomentEditor(const Field& options, const Commit& commit)
        : FieldEditor(options, commit, kDayWidth) {}
    void setValue(const EXValue& value) override { control().setDateValue(instantOf(value)); }
    EXValue value() const override { return control().dateValue(); }
};

class DayEditor final : public FieldEditor<CVMacDateOnlyField> {
  public:
    DayEditor(const Field& options, const Commit& commit)
        : FieldEditor(options, commit, kDayWidth) {}
    void setValue(const EXValue& value) override { control().setDateOnlyValue(dayOf(value)); }
    EXValue value() const override { return control().dateOnlyValue(); }
};

class TimeEditor final : public FieldEditor<CVMacTimeOnlyField> {
  public:
    TimeEditor(const Field& options, const Commit& commit)
        : FieldEditor(options, commit, kTimeWidth) {}
    void setValue(const EXValue& value) override { control().setTimeOnlyValue(timeOf(value)); }
    EXValue value() const override { return control().timeOnlyValue(); }
};

class DayAndTimeEditor final : public FieldEditor<DayAndTimeField> {
  public:
    DayAndTimeEditor(const Field& options, const Commit& commit)
        : FieldEditor(options, commit, kDayWidth + kTimeWidth) {}
    void setValue(const EXValue& value) override { control().setDateValue(instantOf(value)); }
    EXValue value() const override { return control().dateValue(); }
};

class InformativeEditor final : public DetailEditor {
  public:
    explicit InformativeEditor(std::shared_ptr<const EXChoiceList> choices)
        : DetailEditor(std::make_shared<views::Label>()), choices_(std::move(choices)) {
        label().setWraps(true);
    }
    void setValue(const EXValue& value) override {
        value_ = value;
        const auto path = choices_ ? choices_->indexPathForItemWithValue(value) : std::nullopt;
        label().setText(path ? choices_->titleForItemAtIndexPath(path).value_or("")
                             : textOfValue(value));
    }
    EXValue value() const override { return value_; }
    Size sizeForWidth(double width) const override {
        return {width, DetailEditor::sizeForWidth(width).height};
    }

  private:
    views::Label& label() const { return static_cast<views::Label&>(*view()); }

    std::shared_ptr<const EXChoiceList> choices_;
    EXValue value_;
};

std::unique_ptr<DetailEditor> makeEditor(const DetailEditor::Field& field,
                                         const DetailEditor::Commit& commit) {
    switch (field.type) {
        case CVDetailEditorTypeText:
            return std::make_unique<TextEditor>(std::make_shared<views::TextField>(), field,
                                                commit);
        case CVDetailEditorTypeSecondText:
            return std::make_unique<LinesEditor>(field, commit);
        case CVDetailEditorTypeThirdText:
            return std::make_unique<TextEditor>(std::make_shared<SecureField>(), field, commit);
        case CVDetailEditorTypeChoice:
            return std::make_unique<ChoiceEditor<CVMacPopUpChoice>>(field, commit);
        case CVDetailEditorTypeRadioGroup:
            return std::make_unique<ChoiceEditor<CVMacRadioGroup>>(field, commit);
        case CVDetailEditorTypeSwitch:
            return std::make_unique<SwitchEditor>(commit);
        case CVDetailEditorTypeDate:
            return std::make_unique<MomentEditor>(field, commit);
        case CVDetailEditorTypeDateOnly:
            return std::make_unique<DayEditor>(field, commit);
        case CVDetailEditorTypeTimeOnly:
            return std::make_unique<TimeEditor>(field, commit);
        case CVDetailEditorTypeSecondDate:
            return std::make_unique<DayAndTimeEditor>(field, commit);
        default:
            return nullptr;
    }
}

}  // namespace

std::unique_ptr<DetailEditor> DetailEditor::make(const Field& field, const Commit& commit) {
    auto editor = makeEditor(field, commit);
    if (editor) editor->view()->setAccessibilityName(field.name);
    return editor;
}

std::unique_ptr<DetailEditor> DetailEditor::makeInformative(const Field& field) {
    return std::make_unique<InformativeEditor>(field.choices);
}

double DetailEditor::lineHeight() {
    return views::textMeasurer().lineHeight({}) + 2 * kMarginY;
}

Size DetailEditor::sizeForWidth(double width) const {
    const Size size = view_->preferredSizeThatFits({width, kEndless});
    return {std::min(width, size.width), size.height};
}

double DetailEditor::firstLineHeight(double height) const {
    // About as high as a line: what is in it stands in the middle.
    const double line = lineHeight();
    return height < 2 * line ? std::max(line, height) : line - kMarginY;
}

std::string textOfValue(const EXValue& value) {
    using Kind = EXValue::Kind;
    switch (value.kind()) {
        case Kind::Boolean:
            return EXLocalizable::localize(value.booleanValue() ? "Yes" : "No");
        case Kind::Integer:
            return value.largeInteger()
                       ? platform::typedNumberText(fmt::format("{}", value.unsignedValue()))
                       : platform::typedNumberText(value.integerValue());
        case Kind::Real:
            return platform::typedNumberText(fmt::format("{}", value.realValue()));
        case Kind::Text:
            return std::string(value.text().value_or(""));
        case Kind::URL:
            return std::string(value.url()->absoluteString());
        case Kind::Moment:
            return textOfInstant(*value.instant(), DateStyle::Medium, DateStyle::None) + " " +
                   textOfInstant(*value.instant(), DateStyle::None, DateStyle::Short);
        case Kind::Day:
        case Kind::Time: {
            const bool isDay = value.kind() == Kind::Day;
            const auto calendar = EXCalendar::currentCalendar();
            const auto moment = isDay ? instantOf(value) : calendar.dateForTimeOnly(timeOf(value));
            if (!moment) return {};
            return textOfInstant(*moment, isDay ? DateStyle::Medium : DateStyle::None,
                                 isDay ? DateStyle::None : DateStyle::Short);
        }
        default:
            return {};
    }
}

}  // namespace corvane
