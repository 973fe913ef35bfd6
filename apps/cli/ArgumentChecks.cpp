#include "apps/cli/ArgumentChecks.h"

#include "corvane/platform/TextEncoding.h"

namespace corvane::cli {

const std::map<std::string, View>& views() {
    static const std::map<std::string, View> kViews{{"inbox", View::Inbox},
                                                    {"today", View::Today},
                                                    {"next", View::Next},
                                                    {"waiting-for", View::WaitingFor}};
    return kViews;
}

std::string checkUTF8(const std::string& text) {
    return platform::isUTF8(text) ? "" : "the text is not UTF-8";
}

std::string checkNotEmpty(const std::string& text) {
    return text.empty() ? "the text is empty" : checkUTF8(text);
}

std::string checkView(const std::string& text) {
    return views().contains(text) ? "" : "there is no view '" + text + "'";
}

std::optional<std::string> given(const std::string& text) {
    return text.empty() ? std::nullopt : std::optional(text);
}

}  // namespace corvane::cli
