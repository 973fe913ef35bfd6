// A view of published tasks, in which one may move, change and delete them until it is loaded
// again. One thread, the window's.
#pragma once

#include "apps/overviews/ProxyTasksModel.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace corvane::gallery {

class EditableTasksModel final : public overviews::ProxyTasksModel {
  public:
    using Task = std::shared_ptr<HGTaskProxy>;
    using Before = std::function<bool(const HGTaskProxy& a, const HGTaskProxy& b)>;

    using ProxyTasksModel::ProxyTasksModel;

    bool canDeleteObjectAtIndexPath(const IndexPath& path) const override;
    void deleteObjectAtIndexPath(const IndexPath& path) override;
    bool canMoveObjectAtIndexPath(const IndexPath& path) const override;
    void moveObjectAtIndexPath(const IndexPath& path, const IndexPath& target) override;

    /// At that place, or at the end of the section. Nothing without the section.
    void insert(const Task& task, const IndexPath& path);
    /// At the end of the last section; of an empty view, of one that is made for it.
    void append(const Task& task);
    std::int64_t taskCount() const;
    /// Within each section. The delegate hears of a loaded view.
    void sort(const Before& before);

  private:
    std::vector<Section> sections() const;
};

}  // namespace corvane::gallery
