#include "corvane/controls/CVMacDetailForm.h"

#include "corvane/controls/DetailFormContent.h"
#include "corvane/platform/Console.h"
#include "corvane/views/Button.h"
#include "corvane/views/Canvas.h"
#include "corvane/views/Command.h"
#include "corvane/views/Event.h"
#include "corvane/views/Label.h"
#include "corvane/views/Mirroring.h"
#include "corvane/views/ScrollView.h"
#include "corvane/views/Theme.h"
#include "corvane/views/Window.h"
#include "corvane/vocabulary/EXLocalizable.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace corvane {

namespace {

using platform::Rect;
using platform::Size;
using views::Command;
using views::theme;
using views::View;

constexpr double kMargin = 12;
constexpr double kGap = 10;
constexpr double kWidth = 560;
constexpr double kEndless = 1e6;
constexpr double kCustomHeight = 24;
constexpr double kLeastButtonWidth = 80;
constexpr views::Font kTitleFont{17, true};
constexpr views::Font kSectionFont{13, true};

/// The name of the form or of a section.
class HeaderLabel final : public views::Label {
  public:
    HeaderLabel(std::string text, const views::Font& font) : Label(std::move(text)) {
        setFont(font);
    }
    views::Role accessibilityRole() const override { return views::Role::Header; }
};

/// A control that the controller has made.
class CustomEditor final : public DetailEditor {
  public:
    CustomEditor(std::shared_ptr<View> view, std::weak_ptr<CVDetailController> controller,
                 std::int64_t field, std::int64_t section)
        : DetailEditor(std::move(view)),
          controller_(std::move(controller)),
          field_(field),
          section_(section),
          height_(this->view()->frame().height) {}

    void show(const EXValue& value, bool editable) override {
        if (const auto controller = controller_.lock())
            controller->setValueEditableForCustomControl(value, editable, *view(), field_,
                                                         section_);
    }
    EXValue value() const override {
        const auto controller = controller_.lock();
        return controller ? controller->valueOfCustomControl(*view(), field_, section_) : EXValue();
    }
    Size sizeForWidth(double width) const override {
        const Size size = DetailEditor::sizeForWidth(width);
        // A view that prefers nothing would take all that there is.
        return {size.width, size.height < kEndless ? size.height : height_};
    }
    bool growsWithRow() const override { return true; }

  private:
    std::weak_ptr<CVDetailController> controller_;
    std::int64_t field_;
    std::int64_t section_;
    double height_;  ///< as it was made
};

/// Looks for the form each time: the controller may show its control in another one later.
void tellFormAround(const views::Control& control) {
    for (View* above = control.superview(); above; above = above->superview())
        if (auto* form = dynamic_cast<CVMacDetailForm*>(above))
            return form->customControlDidChange(control);
}

/// Where the view stands in a tree that is built like its own.
std::shared_ptr<View> counterpart(const View& view, const View& root,
                                  const std::shared_ptr<View>& otherRoot) {
    if (&view == &root || !view.superview()) return otherRoot;
    const auto other = counterpart(*view.superview(), root, otherRoot);
    const auto& around = view.superview()->subviews();
    const auto isView = [&](const auto& each) { return each.get() == &view; };
    const auto position = static_cast<std::size_t>(
        std::find_if(around.begin(), around.end(), isView) - around.begin());
    return position < other->subviews().size() ? other->subviews()[position] : other;
}

bool showsText(CVDetailEditorType type) {
    return type > CVDetailEditorTypeUnsupported && type < CVDetailEditorTypeCustomControl;
}

}  // namespace

/// Of a view, which may be made anew meanwhile.
struct CVMacDetailForm::Place {
    std::shared_ptr<View> view;
    Row row;  ///< null outside of the editors
};

// Parts.

std::shared_ptr<CVMacDetailForm> CVMacDetailForm::make(
    std::weak_ptr<CVDetailController> controller) {
    auto form = std::make_shared<CVMacDetailForm>();
    form->setController(std::move(controller));
    return form;
}

CVMacDetailForm::CVMacDetailForm(const Rect& frame)
    : CompoundView(frame),
      title_(std::make_shared<HeaderLabel>("", kTitleFont)),
      description_(std::make_shared<views::Label>()),
      scrollView_(std::make_shared<views::ScrollView>()),
      content_(std::make_shared<DetailFormContent>()),
      cancel_(std::make_shared<views::Button>()),
      ok_(std::make_shared<views::Button>()) {
    addParts();
    build();
}

CVMacDetailForm::~CVMacDetailForm() = default;

void CVMacDetailForm::addParts() {
    description_->setWraps(true);
    description_->setTextColor(theme().secondaryText);
    scrollView_->setDocumentView(content_);
    cancel_->setAction([this](auto&) { performCancel(); });
    ok_->setAction([this](auto&) { performOk(); });
    addSubview(title_);
    addSubview(description_);
    addSubview(scrollView_);
    addSubview(cancel_);
    addSubview(ok_);
}

std::string CVMacDetailForm::accessibilityName() const {
    const std::string own = CompoundView::accessibilityName();
    return own.empty() ? title_->text() : own;
}

// The controller.

void CVMacDetailForm::setController(std::weak_ptr<CVDetailController> controller) {
    const auto self = std::static_pointer_cast<CVMacDetailForm>(shared_from_this());
    const auto before = controller_.lock();
    const auto after = controller.lock();
    if (after && before == after) return;
    discardEditing();
    controller_ = std::move(controller);
    if (before && before->detail() == self) before->setDetail(nullptr);
    if (after) {
        after->setDetail(self);
        after->detailDidLoad();
        if (window()) after->detailWillAppear();
    }
    reload();
    scrollView_->scrollTo({0, 0});
    if (after && window()) after->detailDidAppear();
}

void CVMacDetailForm::willMoveToWindow(views::Window* window) {
    const auto controller = this->controller();
    if (!window || !controller) return;
    controller->detailWillAppear();
    reload();
}

void CVMacDetailForm::didMoveToWindow() {
    const auto controller = this->controller();
    if (window() && controller) controller->detailDidAppear();
}

void CVMacDetailForm::reload() {
    const auto keepAlive = weak_from_this().lock();
    const Place focused = placeOfFocus();
    commitEditing();
    build();
    restoreFocus(focused);
}

void CVMacDetailForm::build() {
    const auto controller = this->controller();
    std::vector<DetailFormSection> sections;
    std::vector<std::shared_ptr<View>> keyViews;
    cancel_->setTitle(EXLocalizable::localize("Cancel"));
    ok_->setTitle(EXLocalizable::localize("OK"));
    buildHeading(controller.get());
    const Index count = controller ? controller->countSections() : 0;
    for (Index section = 0; section < count; ++section) {
        DetailFormSection& made = sections.emplace_back();
        if (const auto name = controller->nameForSection(section))
            made.header = std::make_shared<HeaderLabel>(*name, kSectionFont);
        const Index fields = controller->countFields(section);
        for (Index field = 0; field < fields; ++field) {
            made.rows.push_back(makeRow(*controller, field, section));
            if (const auto& editor = made.rows.back()->editor) keyViews.push_back(editor->view());
        }
    }
    content_->setSections(std::move(sections));
    keyViews.insert(keyViews.end(), {cancel_, ok_});
    setKeyViewParts(keyViews);
    for (const auto& row : content_->rows())
        showValue(*row);
    preferredSizeDidChange();
}

void CVMacDetailForm::buildHeading(const CVDetailController* controller) {
    title_->setText(controller ? controller->title().value_or("") : "");
    const bool shows = controller && controller->showsDescription();
    description_->setText(shows ? controller->description().value_or("") : "");
}

CVMacDetailForm::Row CVMacDetailForm::makeRow(CVDetailController& controller, Index field,
                                              Index section) {
    const auto row = std::make_shared<DetailFormRow>();
    row->field = field;
    row->section = section;
    row->type = controller.editorTypeForField(field, section);
    row->leastHeight = controller.rowHeightForField(field, section);
    row->label =
        std::make_shared<views::Label>(controller.nameForField(field, section).value_or(""));
    row->label->setAlignment(views::TextAlignment::Trailing);
    row->label->setTextColor(theme().secondaryText);
    const auto choices = controller.choiceSetForField(field, section);
    if (row->type == CVDetailEditorTypeCustomControl) {
        const Rect frame{0, 0, kWidth / 2, row->leastHeight > 0 ? row->leastHeight : kCustomHeight};
        auto view = controller.createCustomControlForField(
            field, section, frame, controller.valueForField(field, section),
            controller.fieldIsEditable(field, section), choices);
        auto* control = dynamic_cast<views::Control*>(view.get());
        if (control && !control->hasAction()) control->setAction(tellFormAround);
        if (view)
            row->editor =
                std::make_unique<CustomEditor>(std::move(view), controller_, field, section);
        return row;
    }
    const DetailEditor::Field options{row->type, row->label->text(),
                                      controller.placeholderForField(field, section).value_or(""),
                                      choices, controller.iconMapForField(field, section)};
    const bool isInformative = controller.fieldIsInformative(field, section);
    const auto commit = [weak = weak_from_this(), field, section] {
        if (const auto form = std::static_pointer_cast<CVMacDetailForm>(weak.lock()))
            form->valueDidChange(field, section);
    };
    row->editor = isInformative && showsText(row->type) ? DetailEditor::makeInformative(options)
                                                        : DetailEditor::make(options, commit);
    return row;
}

// Values.

void CVMacDetailForm::updateValueForField(Index field, Index section) {
    const auto keepAlive = weak_from_this().lock();
    const auto row = content_->row(field, section);
    if (!row) return;
    if (row->isTyped) {
        row->isStale = true;
        return;
    }
    showValue(*row);
    preferredSizeDidChange();
}

void CVMacDetailForm::showValue(DetailFormRow& row) {
    if (row.type == CVDetailEditorTypeUnsupported)
        platform::currentConsole().writeLine(
            "WARNING: Encountered unsupported editor type in "
            "[CVMacDetailForm updateValueForField:]");
    const auto controller = this->controller();
    if (!controller || !row.editor) return;
    row.editor->show(controller->valueForField(row.field, row.section),
                     controller->fieldIsEditable(row.field, row.section));
    row.shown = row.editor->value();
    settle(row);
}

void CVMacDetailForm::settle(DetailFormRow& row) {
    row.isTyped = row.isStale = false;
    const auto field = editedField();
    if (field && content_->rowAround(*field).get() == &row) row.textBefore = field->stringValue();
}

void CVMacDetailForm::valueDidChange(Index field, Index section) {
    const auto keepAlive = weak_from_this().lock();
    const auto row = content_->row(field, section);
    const auto controller = this->controller();
    if (!row || !row->editor || !controller || discards_) return;
    settle(*row);
    const EXValue value = row->editor->value();
    // A control of the controller's own may have no value to compare.
    const bool isCustom = row->type == CVDetailEditorTypeCustomControl;
    if (!isCustom && value == row->shown) return;
    row->shown = value;
    controller->valueChangedForField(field, section, value);
    preferredSizeDidChange();
}

void CVMacDetailForm::customControlDidChange(const View& control) {
    if (const auto row = content_->rowAround(control)) valueDidChange(row->field, row->section);
}

std::shared_ptr<View> CVMacDetailForm::viewForField(Index field, Index section) const {
    const auto row = content_->row(field, section);
    return row && row->editor ? row->editor->view() : nullptr;
}

// Editing.

std::shared_ptr<views::TextField> CVMacDetailForm::editedField() const {
    const views::Window* window = this->window();
    auto field = window ? window->fieldEditor().client() : nullptr;
    return field && field->isDescendantOf(*this) ? field : nullptr;
}

bool CVMacDetailForm::commitEditing() {
    return !editedField() || window()->makeFirstResponder(nullptr);
}

void CVMacDetailForm::discardEditing() {
    const auto keepAlive = weak_from_this().lock();
    const auto field = editedField();
    if (!field) return;
    discards_ = true;
    window()->makeFirstResponder(nullptr);
    discards_ = false;
    if (const auto row = content_->rowAround(*field)) showValue(*row);
}

void CVMacDetailForm::performOk() {
    const auto keepAlive = weak_from_this().lock();
    const Place focused = placeOfFocus();
    if (!commitEditing()) return;
    if (const auto controller = this->controller()) controller->didInvokeOkAction();
    restoreFocus(focused);  // where the controller was not content
}

void CVMacDetailForm::performCancel() {
    const auto keepAlive = weak_from_this().lock();
    discardEditing();
    if (const auto controller = this->controller()) controller->didInvokeCancelAction();
}

void CVMacDetailForm::close() {
    const auto keepAlive = weak_from_this().lock();
    discardEditing();
    const auto notice = didClose;
    if (notice) notice();
}

void CVMacDetailForm::controlTextDidBeginEditing(views::TextField& field) {
    field.scrollRectToVisible(field.bounds());
    if (const auto row = content_->rowAround(field)) row->textBefore = field.stringValue();
}

void CVMacDetailForm::controlTextDidChange(views::TextField& field) {
    const auto row = content_->rowAround(field);
    if (!row) return;
    row->isTyped = field.stringValue() != row->textBefore;
    if (row->editor->growsWithRow()) preferredSizeDidChange();
}

void CVMacDetailForm::controlTextDidEndEditing(views::TextField& field) {
    const auto row = content_->rowAround(field);
    if (!row) return;
    // Otherwise what was typed is committed next, and counts.
    if (!row->isTyped && row->isStale) showValue(*row);
    row->isTyped = row->isStale = false;
}

bool CVMacDetailForm::controlDoCommandBySelector(views::TextField& field, views::FieldEditor&,
                                                 Command command) {
    if (command == Command::InsertTab) return passFocusOn(field, true);
    if (command == Command::InsertBacktab) return passFocusOn(field, false);
    const bool confirms = command == Command::InsertNewline && !field.isMultiline();
    if (confirms) performOk();
    if (command == Command::CancelOperation) performCancel();
    return confirms || command == Command::CancelOperation;
}

bool CVMacDetailForm::keyDown(const views::KeyEvent& event) {
    const auto command = views::commandForKey(event);
    if (command == Command::CancelOperation) {
        performCancel();
        return true;
    }
    if (command != Command::InsertNewline) return false;
    const auto focused = placeOfFocus().view;
    if (focused && focused->accessibilityRole() == views::Role::Button) {
        focused->accessibilityPress();
    } else {
        performOk();
    }
    return true;
}

// The focus.

auto CVMacDetailForm::placeOf(const std::shared_ptr<View>& view) const -> Place {
    return {view, view ? content_->rowAround(*view) : nullptr};
}

auto CVMacDetailForm::placeOfFocus() const -> Place {
    return placeOf(window() ? window()->firstResponder() : nullptr);
}

std::shared_ptr<View> CVMacDetailForm::viewAt(const Place& place) const {
    if (!place.row || place.view->isDescendantOf(*this)) return place.view;
    const auto again = viewForField(place.row->field, place.row->section);
    return again ? counterpart(*place.view, *place.row->editor->view(), again) : nullptr;
}

void CVMacDetailForm::restoreFocus(const Place& place) {
    views::Window* window = this->window();
    if (!window || window->firstResponder()) return;
    if (const auto view = viewAt(place)) window->makeFirstResponder(view);
}

bool CVMacDetailForm::passFocusOn(views::TextField& field, bool forward) {
    const auto keepAlive = weak_from_this().lock();
    const Place place = placeOf(field.shared_from_this());
    if (!(forward ? field.nextValidKeyView() : field.previousValidKeyView())) return false;
    // Before the way on is looked for: a controller that is told may load the form anew.
    commitEditing();
    views::Window* window = this->window();
    const auto from = window ? viewAt(place) : nullptr;
    if (!from) return true;
    return forward ? window->selectNextKeyViewOf(*from) : window->selectPreviousKeyViewOf(*from);
}

// Looks.

struct CVMacDetailForm::Layout {
    Rect title, description, scrollView, cancel, ok;
    double height = 0;
};

CVMacDetailForm::Layout CVMacDetailForm::layOut(Size size) const {
    Layout layout;
    const double width = std::max(0.0, size.width - 2 * kMargin);
    const Size room{width, kEndless};
    const double button = ok_->preferredSizeThatFits(room).height;
    const double below = button + kGap + kMargin;
    const double bottom = std::max(kMargin, size.height - below);
    double y = kMargin;
    const auto stack = [&](views::Label& label) {
        if (label.text().empty()) return Rect{};
        // A long description leaves the buttons where they can be reached.
        const double height =
            std::min(std::ceil(label.preferredSizeThatFits(room).height), bottom - y);
        const Rect frame{kMargin, y, width, height};
        y = std::min(bottom, frame.bottom() + kGap);
        return frame;
    };
    layout.title = stack(*title_);
    layout.description = stack(*description_);
    const auto buttonWidth = [&](views::Button& of) {
        return std::max(kLeastButtonWidth, std::ceil(of.preferredSizeThatFits(room).width));
    };
    const double content = content_->preferredSizeThatFits(room).height;
    layout.height = y + content + below;
    layout.scrollView = {kMargin, y, width, bottom - y};
    const double buttonsY = bottom + kGap;
    const double end = size.width - kMargin;
    layout.ok = {end - buttonWidth(*ok_), buttonsY, buttonWidth(*ok_), button};
    const double cancel = buttonWidth(*cancel_);
    layout.cancel = {layout.ok.x - kGap - cancel, buttonsY, cancel, button};
    return layout;
}

views::Size CVMacDetailForm::preferredSizeThatFits(Size available) {
    const double width = std::min(available.width, kWidth);
    return {width, std::min(available.height, layOut({width, kEndless}).height)};
}

void CVMacDetailForm::applyLayout() {
    const Layout layout = layOut(bounds().size());
    const auto place = [&](View& view, const Rect& frame) {
        view.setFrame(views::mirrored(frame, bounds().width));
    };
    place(*title_, layout.title);
    place(*description_, layout.description);
    place(*scrollView_, layout.scrollView);
    place(*cancel_, layout.cancel);
    place(*ok_, layout.ok);
    DetailFormContent::tellWholeText(*title_);
    content_->setFrameSize({scrollView_->contentSize().width, content_->frame().height});
    content_->placeRows();
}

void CVMacDetailForm::draw(views::Canvas& canvas, const Rect&) {
    canvas.fillRect(bounds(), theme().background);
    const double y = ok_->frame().y - kGap / 2;
    canvas.drawLine({kMargin, y}, {bounds().width - kMargin, y}, theme().separator, 1);
}

}  // namespace corvane
