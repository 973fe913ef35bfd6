// The one shape in which tests and programs put something in the place of a service of the system.
#pragma once

#include <atomic>

namespace corvane::platform {

/// Puts a service in force for as long as it lives. The service must outlive it. Scopes nest, on
/// one thread; an accessor that says "any thread" may be used on all of them meanwhile.
///
/// `inForce` is where the service in force stands. It is no business of callers, who have an
/// accessor for that.
template <class Service, std::atomic<Service*>& inForce()>
class ScopedOverride {
  public:
    explicit ScopedOverride(Service& service) : previous_(inForce().exchange(&service)) {}
    ~ScopedOverride() { inForce() = previous_; }
    ScopedOverride(const ScopedOverride&) = delete;
    ScopedOverride& operator=(const ScopedOverride&) = delete;

  private:
    Service* previous_;
};

}  // namespace corvane::platform
