// Which environment of its cloud the program works against. Functions over process-wide state; any
// thread.
#pragma once

namespace corvane {

class EXCloudContainer {
  public:
    /// What determineEnvironment found when it was first asked for in this process.
    static int environment();

    /// 1 where the environment of the cloud's container is the number 2, else 2, also without a
    /// container (see platform/CloudContainer.h).
    static int determineEnvironment();

    /// Lets environment() ask again; for tests.
    static void resetEnvironment();

    EXCloudContainer() = delete;
};

}  // namespace corvane
