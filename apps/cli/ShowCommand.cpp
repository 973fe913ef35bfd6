#include "apps/cli/Commands.h"
#include "apps/cli/Container.h"
#include "apps/cli/ViewOutput.h"

namespace corvane::cli {

void runShow(View view, Format format) {
    HGTaskProxyManager manager;
    manager.reloadDataFromSharedInfo(publishedInfo());
    printView(manager, view, format);
}

}  // namespace corvane::cli
