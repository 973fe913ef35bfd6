// A row with a field in each column of its list.
#pragma once

#include "corvane/controls/TabularColumns.h"
#include "corvane/table/CVMacTableViewCell.h"

#include <memory>
#include <string>
#include <vector>

namespace corvane {

/// Fields are made when they are first needed, read-only until a column is said to be editable.
/// A field that is edited is committed as the row's change.
class CVMacTabularCell : public CVMacTableViewCell {
  public:
    using ColumnsPtr = std::shared_ptr<const TabularColumns>;

    /// Null for no columns.
    CVMacTabularCell(const CVIndexPath& path, ColumnsPtr columns);

    /// Nothing for a column that is not there.
    void setTextForColumn(const std::string& identifier, const std::string& text);
    /// As the user left it; empty for a column that is not there.
    std::string textForColumn(const std::string& identifier) const;
    void setColumnEditable(const std::string& identifier, bool editable);
    /// The column's field, made now where it was not before; null for a column that is not there.
    FieldPtr fieldForColumn(const std::string& identifier);
    /// Stands in the place of the field, for what is no text, until another one does; null for the
    /// field again.
    void setViewForColumn(const std::string& identifier, const ViewPtr& view);

    const ColumnsPtr& columns() const { return columns_; }
    /// They are others now.
    void columnsDidChange();

    /// Without the texts of the row before.
    void prepareForReuse() override;
    void layoutContentView(views::View& contentView) override;
    /// Unless one was set, the texts in the order of the columns.
    std::string accessibilityName() const override;

  private:
    struct Entry {
        std::string identifier;
        FieldPtr field;
        ViewPtr view;
        bool editable = false;
    };

    Entry* entryOf(const std::string& identifier);  ///< null for a column that is not there
    const Entry* knownEntry(const std::string& identifier) const;
    void connectFields();

    ColumnsPtr columns_;
    std::vector<Entry> entries_;
};

}  // namespace corvane
