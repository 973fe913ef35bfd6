// What a detail controller asks of the form that shows its screen.
#pragma once

namespace corvane {

/// Implemented by the form, which refers back to its controller weakly. One thread, the window's.
class CVDetail {
  public:
    virtual ~CVDetail() = default;

    /// The form may let go of its controller.
    virtual void close() = 0;
};

}  // namespace corvane
