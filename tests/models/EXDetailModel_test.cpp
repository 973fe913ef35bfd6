#include "corvane/models/EXDetailModel.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

using namespace corvane;
using platform::URL;

namespace {

using Field = EXDetailModelFieldDescriptor;
using Section = EXDetailModelSectionDescriptor;
using Path = platform::IndexPath;

struct Record : EXKeyValueObject {
    std::map<std::string, EXValue, std::less<>> values;
    EXValue valueForKey(std::string_view key) const override {
        auto found = values.find(key);
        return found == values.end() ? EXValue() : found->second;
    }
    void setValueForKey(const EXValue& value, std::string_view key) override {
        values[std::string(key)] = value;
    }
};

/// A form of a text, a field without a key and one that is only shown; logs what happens to it.
struct Form : EXDetailModel {
    std::shared_ptr<Field> name = std::make_shared<Field>(std::nullopt, "Name", "name");
    std::shared_ptr<Field> label = std::make_shared<Field>("Mine", "Label");
    std::shared_ptr<Field> shown =
        std::make_shared<Field>(std::string(EXDetailModelFieldTypeInteger), "Count", "count");
    std::shared_ptr<Record> record = std::make_shared<Record>();
    std::string log;
    std::string* lastWords = nullptr;  ///< where the log is left at the end
    std::function<EXValue(const EXValue&)> propose = [](const EXValue& value) { return value; };

    Form() {
        shown->setEditable(false);
        auto first = std::make_shared<Section>();
        auto second = std::make_shared<Section>();
        auto footer = std::make_shared<Section>();
        first->setTitle("First");
        for (const auto& field : {name, label})
            first->addFieldDescriptor(field);
        for (const auto& field : {shown, name})
            second->addFieldDescriptor(field);
        for (const auto& field : {shown, label})
            footer->addFieldDescriptor(field);
        setSectionDescriptors({first, second});
        setFooterSectionDescriptor(footer);
        setObject(record);
    }
    ~Form() override {
        if (lastWords) *lastWords = log;
    }
    void reloadData() override { log += "reload " + std::to_string(state()) + "; "; }
    EXValue valueForSettingProposedValue(const EXValue& value, const Path&) override {
        return propose(value);
    }
    void didSetValueForFieldAtIndexPath(const EXValue& value, const Path& path) override {
        log += "set " + std::string(value.text().value_or("-")) + " at " +
               std::to_string(path.section) + "," + std::to_string(path.row()) + "; ";
    }
};

TEST(EXDetailModel, AnswersForItsFieldsAsTheyAreDescribed) {
    Form form;
    form.record->values = {{"name", "Ada"}, {"count", 3}, {"", "none of the form's"}};
    struct Case {
        Path path;
        const char* type;
        const char* key;
        bool editable;
        EXValue value;
    };
    const Case cases[] = {
        {{0, 0}, "EXDetailModelFieldTypeString", "name", true, "Ada"},
        {{0, 1}, "Mine", nullptr, false, {}},
        {{1, 0}, "EXDetailModelFieldTypeInteger", "count", false, 3},
        {{1, 1}, "EXDetailModelFieldTypeString", "name", true, "Ada"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << c.path.section << "," << c.path.item);
        EXPECT_EQ(form.typeForFieldAtIndexPath(c.path), c.type);
        EXPECT_EQ(form.keyForFieldAtIndexPath(c.path).value_or("-"), c.key ? c.key : "-");
        EXPECT_EQ(form.canEditFieldAtIndexPath(c.path), c.editable);
        EXPECT_EQ(form.valueForFieldAtIndexPath(c.path), c.value);
    }
    EXPECT_EQ(form.valueForFooterFieldAtIndex(0), EXValue(3));
    EXPECT_TRUE(form.valueForFooterFieldAtIndex(1).isNull());
    EXPECT_EQ(form.indexPathForFieldDescriptor(form.name.get()), Path(0, 0)) << "the first";
    EXPECT_EQ(form.indexPathForFieldDescriptor(form.shown.get()), Path(1, 0));
    EXPECT_FALSE(form.indexPathForFieldDescriptor(std::make_shared<Field>().get()));
    for (const Path& wrong : {Path{2, 0}, Path{-1, 0}, Path{0, 2}, Path{0, -1}})
        EXPECT_THROW(form.valueForFieldAtIndexPath(wrong), std::out_of_range);
    form.setFooterSectionDescriptor(nullptr);
    EXPECT_TRUE(form.valueForFooterFieldAtIndex(7).isNull());
    EXPECT_EQ(form.titleForSection(0), "First");
    EXPECT_EQ(form.numberOfSections() * 10 + form.numberOfFieldsInSection(1), 22);
}

TEST(EXDetailModel, SetsThroughItsHooks) {
    Form form;
    form.propose = [](const EXValue& value) { return std::string(*value.text()) + "!"; };
    form.setValueForFieldAtIndexPath("Ada", {0, 0});
    EXPECT_EQ(form.record->values.at("name"), EXValue("Ada!"));
    form.setValueForFieldAtIndexPath("nowhere", {0, 1});
    EXPECT_EQ(form.log, "set Ada! at 0,0; ");
    EXPECT_EQ(form.record->values.size(), 1u);

    auto other = std::make_shared<Record>();
    form.propose = [&](const EXValue& value) { return form.setObject(other), value; };
    form.setValueForFieldAtIndexPath("Ben", {0, 0});
    EXPECT_TRUE(other->values.empty()) << "the value was meant for the object before";
    EXPECT_EQ(form.record->values.at("name"), EXValue("Ada!"));
}

TEST(EXDetailModel, KnowsANewObjectFromAnExistingOne) {
    Form form;
    form.setTitle("Both");
    form.setTitle("Edit", 1);
    form.setTitle("Nothing", 2);
    EXPECT_EQ(form.title(), "Both");
    form.setUriRepresentation(URL("x:1"));
    EXPECT_EQ(form.title(), "Edit");
    form.reset();
    EXPECT_TRUE(!form.uriRepresentation() && !form.object() && form.state() == 1);
    EXPECT_TRUE(form.valueForFieldAtIndexPath({0, 0}).isNull());
    form.setUriRepresentation(std::nullopt);
    EXPECT_EQ(form.state(), 0);
    EXPECT_EQ(form.log, "reload 1; reload 0; ");
    form.setState(2);
    EXPECT_EQ(form.title(), std::nullopt);
}

TEST(EXDetailModel, OutlivesWhateverItsDelegateDoes) {
    auto form = std::make_shared<Form>();
    std::weak_ptr<Form> watched = form;
    auto delegate = std::make_shared<EXDetailModelDelegate>();
    std::string log;
    form->setDelegate(delegate);
    form->invalidate();  // with a delegate that has no operations
    form->setUriRepresentation(URL("x:1"));
    delegate->didInvalidateDetailModel = [&](EXDetailModel& model) {
        log += model.uriRepresentation() || model.object() ? "early; " : "invalid; ";
        delegate->didInvalidateDetailModel = nullptr;
        model.setUriRepresentation(URL("x:2"));
        model.invalidate();
    };
    delegate->detailModelDidReloadFieldAtIndexPath = [&](EXDetailModel&, const Path& path) {
        log += "field " + std::to_string(path.section) + "," + std::to_string(path.item) + "; ";
    };
    delegate->detailModelShowConfirmationWithTitle = [&](auto&, auto& title, auto& message,
                                                         auto& yes, auto& no, auto& confirmed) {
        log += title + message + yes + no + "; ";
        confirmed();
    };
    form->invalidate();
    form->reloadFieldForDescriptor(form->shown.get());
    form->reloadFieldForDescriptor(nullptr);
    form->showConfirmationWithTitle("a", "b", "c", "d", [&] { log += "confirmed; "; });
    EXPECT_EQ(log, "invalid; field 1,0; abcd; confirmed; ");

    delegate->detailModelShowAlertWithTitle = [&](auto&, auto& title, auto&, auto&) {
        log = title;
        form = nullptr;
    };
    std::string lastWords;
    form->lastWords = &lastWords;
    form->setObject(form->record);
    form->propose = [alive = watched](const EXValue& value) {
        alive.lock()->showAlertWithTitle("dropped", "", "");
        return value;
    };
    form->setValueForFieldAtIndexPath("x", {0, 0});
    EXPECT_EQ(log, "dropped");
    EXPECT_TRUE(watched.expired());
    EXPECT_TRUE(lastWords.ends_with("set x at 0,0; ")) << lastWords;
}

}  // namespace
