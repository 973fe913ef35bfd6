#include "corvane/qt/Clipboard.h"
#include "corvane/qt/PasteboardMime.h"

#include <gtest/gtest.h>

#include <QMimeData>
#include <QUrl>

using namespace corvane::platform;
using namespace corvane::qt;

namespace {

PasteboardItem itemOf(std::initializer_list<std::pair<std::string_view, Value>> forms) {
    PasteboardItem item;
    for (const auto& [type, value] : forms)
        item.setValue(type, value);
    return item;
}

std::string described(const Pasteboard& pasteboard) {
    std::string text;
    for (const auto& item : pasteboard.items()) {
        for (const auto& type : item.types()) {
            const Value& value = item.valueForType(type);
            text += type + "=" + item.textForType(type).value_or("") +
                    std::string(value.data() ? std::to_string(value.data()->size()) : "") + " ";
        }
        text += "| ";
    }
    return text;
}

const Bytes kBytes = {std::byte{0}, std::byte{255}, std::byte{10}};

}  // namespace

TEST(PasteboardMime, CarriesWholePasteboardsAndWhatOthersRead) {
    Pasteboard pasteboard;
    pasteboard.addItem(itemOf({{"private.path", "[1, 2]"},
                               {kPasteboardTypeString, "Käse"},
                               {"private.bytes", kBytes},
                               {kPasteboardTypeURL, "https://example.org/a%20b?c=d"},
                               {kPasteboardTypeURLName, "A page"}}));
    pasteboard.addItem(itemOf({{kPasteboardTypeString, ""}}));
    pasteboard.addItem(itemOf({}));
    const auto data = mimeDataOf(pasteboard);
    EXPECT_EQ(described(pasteboardOf(*data)), described(pasteboard));
    EXPECT_EQ(data->text(), QString::fromUtf8("Käse\n"));
    EXPECT_EQ(data->urls(), QList<QUrl>{QUrl("https://example.org/a%20b?c=d")});
    EXPECT_EQ(data->data("public.url-name"), "A page");
    EXPECT_EQ(data->data("private.path"), "[1, 2]");
    writeToClipboard(pasteboard);
    EXPECT_EQ(described(clipboardContents()), described(pasteboard));
    EXPECT_TRUE(mimeDataOf(Pasteboard())->formats().isEmpty());
}

TEST(PasteboardMime, ReadsWhatOtherProgramsOffer) {
    const QString mozilla = QStringLiteral("https://example.org/x\nThe <title>");
    const QByteArray utf16(reinterpret_cast<const char*>(mozilla.utf16()), mozilla.size() * 2);
    using Formats = std::vector<std::pair<const char*, QByteArray>>;
    const std::pair<Formats, std::string> kCases[] = {
        {{}, ""},
        {{{"text/plain", "one\ntwo"}}, "public.utf8-plain-text=one\ntwo | "},
        {{{"text/uri-list", "https://a.example/\r\nfile:///tmp/b\r\n"}},
         "public.url=https://a.example/ | public.url=file:///tmp/b | "},
        {{{"text/uri-list", "https://example.org/x"}, {"text/x-moz-url", utf16}},
         "public.url=https://example.org/x public.url-name=The <title> text/x-moz-url=" +
             std::to_string(utf16.size()) + " | "},
        {{{"text/uri-list", "https://a.example/"}, {"text/x-moz-url-desc", QByteArray("B\0", 2)}},
         "public.url=https://a.example/ public.url-name=B text/x-moz-url-desc=2 | "},
        {{{"text/uri-list", "https://a.example/"}, {"_NETSCAPE_URL", "https://a.example/\nC"}},
         "public.url=https://a.example/ public.url-name=C _NETSCAPE_URL=20 | "},
        {{{"text/x-moz-url", "\x68"}}, "text/x-moz-url=1 | "},
        {{{"application/x-corvane-pasteboard", "\xFF\xFF\xFF\xFF\xFF"}, {"text/plain", "kept"}},
         "public.utf8-plain-text=kept | "},
    };
    for (const auto& [formats, expected] : kCases) {
        QMimeData data;
        for (const auto& [format, bytes] : formats)
            data.setData(format, bytes);
        EXPECT_EQ(described(pasteboardOf(data)), expected);
    }
}

TEST(PasteboardMime, SurvivesEveryTornFormat) {
    Pasteboard pasteboard;
    pasteboard.addItem(itemOf({{"a", "text"}, {"b", kBytes}}));
    const QByteArray whole = mimeDataOf(pasteboard)->data("application/x-corvane-pasteboard");
    for (qsizetype length = 0; length < whole.size(); ++length) {
        QMimeData torn;
        torn.setData("application/x-corvane-pasteboard", whole.left(length));
        EXPECT_TRUE(pasteboardOf(torn).items().empty()) << length;
    }
}
