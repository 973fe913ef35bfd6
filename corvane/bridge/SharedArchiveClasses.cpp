#include "corvane/bridge/SharedArchiveClasses.h"

#include "corvane/bridge/HGAttachmentProxy.h"
#include "corvane/bridge/HGCategoryProxy.h"
#include "corvane/bridge/HGPortfolioProxy.h"
#include "corvane/bridge/HGProjectProxy.h"
#include "corvane/bridge/HGSharedRepository.h"
#include "corvane/bridge/HGTaskProxy.h"
#include "corvane/bridge/HGTaskProxyList.h"
#include "corvane/bridge/HGTaskProxyModel.h"
#include "corvane/platform/KeyedUnarchiver.h"

namespace corvane {

const platform::ArchiveClasses& sharedArchiveClasses() {
    static const platform::ArchiveClasses classes = platform::ArchiveClasses()
                                                        .add<HGTaskProxy>()
                                                        .add<HGProjectProxy>()
                                                        .add<HGCategoryProxy>()
                                                        .add<HGPortfolioProxy>()
                                                        .add<HGAttachmentProxy>()
                                                        .add<HGTaskProxyList>()
                                                        .add<HGTaskProxyModel>()
                                                        .add<HGSharedRepository>();
    return classes;
}

}  // namespace corvane
