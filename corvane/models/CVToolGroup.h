// Tools under one heading of the source list, in order. One thread, the window's.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace corvane {

class CVTool;

/// Held by a shared pointer.
class CVToolGroup {
  public:
    CVToolGroup(std::string identifier, std::string label)
        : identifier_(std::move(identifier)), label_(std::move(label)) {}
    CVToolGroup(const CVToolGroup&) = delete;
    CVToolGroup& operator=(const CVToolGroup&) = delete;

    const std::string& identifier() const { return identifier_; }
    const std::string& label() const { return label_; }
    const std::vector<std::shared_ptr<CVTool>>& tools() const { return tools_; }

    /// Puts it last. Adding null throws std::invalid_argument.
    void addTool(std::shared_ptr<CVTool> tool);
    std::int64_t countTools() const { return static_cast<std::int64_t>(tools_.size()); }

    /// Throws std::out_of_range where there is no such tool.
    const std::shared_ptr<CVTool>& toolAtIndex(std::int64_t index) const;

  private:
    const std::string identifier_;
    const std::string label_;
    std::vector<std::shared_ptr<CVTool>> tools_;
};

}  // namespace corvane
