// An overview model that has its sections at hand, with their objects: most lists need no more than
// to fill it. One thread, as for every overview model.
#pragma once

#include "corvane/models/EXOverviewModel.h"
#include "corvane/platform/AddressTable.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvane {

/// Answers all questions for counts, objects and paths; an object is found in constant time. A
/// subclass sets the sections when it loads, and adds titles and identities. A path or section that
/// is not there throws std::out_of_range.
class SectionedOverviewModel : public EXOverviewModel {
  public:
    struct Section {
        std::optional<std::string> title;
        std::vector<EXObject> objects;
    };

    std::int64_t numberOfSections() const override;
    std::optional<std::string> titleForSection(std::int64_t section) const override;
    std::int64_t numberOfObjectsInSection(std::int64_t section) const override;
    EXObject objectAtIndexPath(const IndexPath& path) const override;
    /// None for a section that is not there. Of an object that is listed twice, the first place.
    std::optional<IndexPath> indexPathOfObjectInSection(const EXObject& object,
                                                        std::int64_t section) const override;
    void unloadData() override { setSections({}); }

  protected:
    /// Replaces all that is listed; tells nobody.
    void setSections(std::vector<Section> sections);

  private:
    const Section& sectionAt(std::int64_t section) const;
    const platform::AddressTable& rowsOfSection(std::size_t section) const;

    std::vector<Section> sections_;
    /// By section, made when something is looked for there for the first time: the row after each
    /// object.
    mutable std::vector<std::optional<platform::AddressTable>> rowsOfSections_;
};

}  // namespace corvane
