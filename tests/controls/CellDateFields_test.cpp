#include "corvane/controls/CellDateFields.h"

#include "corvane/controls/CVMacDateField.h"
#include "corvane/controls/CVMacDateOnlyField.h"
#include "corvane/views/ImageView.h"

#include "tests/controls/FieldRoundTrip.h"
#include "tests/table/TableFixture.h"

#include <gmock/gmock.h>

using namespace corvane;

TEST(CellDateFields, OpenWithTheirRowAndCommitIt) {
    tests::FieldSurroundings surroundings;
    test::TableFixture fixture{{1, 2}};
    const auto cell = fixture.cell(0, 1);
    const auto date = createDateField(*cell);
    const auto [icon, day] = createIconDateOnlyField(*cell, nullptr);
    EXPECT_EQ(icon->superview(), cell->contentView().get());
    for (const std::shared_ptr<views::TextField>& field :
         {std::shared_ptr<views::TextField>(date), std::shared_ptr<views::TextField>(day)}) {
        EXPECT_FALSE(field->isEditable());
        cell->activateField(field);
        EXPECT_TRUE(field->isEditable());
        EXPECT_EQ(fixture.takeLog(), "select(0,1) ");
        field->setStringValue("tomorrow");
        field->sendAction();
        EXPECT_EQ(fixture.takeLog(), "edit(0,1) ");
    }
    EXPECT_TRUE(date->dateValue());
}
