#include "corvane/qt/PasteboardMime.h"

#include "corvane/qt/Geometry.h"

#include <QDataStream>
#include <QIODevice>
#include <QMimeData>
#include <QStringDecoder>
#include <QUrl>
#include <optional>

namespace corvane::qt {

using platform::Bytes;
using platform::Pasteboard;
using platform::PasteboardItem;
using platform::Value;

namespace {

/// All items: a format that only programs of this library write. Other programs may pretend to.
const QString kWholeFormat = QStringLiteral("application/x-corvane-pasteboard");
const QString kTextFormat = QStringLiteral("text/plain");
const QString kURLFormat = QStringLiteral("text/uri-list");
/// What browsers put there, in UTF-16: URL, line break, name. Not every desktop lets it through,
/// and so they add the name alone, or the same in UTF-8.
const QString kBrowserURLFormat = QStringLiteral("text/x-moz-url");
const QString kBrowserNameFormat = QStringLiteral("text/x-moz-url-desc");
const QString kOldBrowserURLFormat = QStringLiteral("_NETSCAPE_URL");
constexpr quint32 kVersion = 1;
constexpr quint32 kMostEntries = 100000;

bool isText(const Value& value) {
    return value.text().has_value() || value.url() != nullptr;
}

QByteArray bytesOf(const Value& value) {
    if (const auto text = value.text()) return {text->data(), static_cast<qsizetype>(text->size())};
    if (const auto* url = value.url()) return qString(url->absoluteString()).toUtf8();
    if (const Bytes* bytes = value.data())
        return {reinterpret_cast<const char*>(bytes->data()),
                static_cast<qsizetype>(bytes->size())};
    return {};
}

bool isCarried(const Value& value) {
    return isText(value) || value.data() != nullptr;
}

Value valueOf(const QByteArray& bytes, bool text) {
    if (text) return Value(bytes.toStdString());
    const auto* begin = reinterpret_cast<const std::byte*>(bytes.constData());
    return Value(Bytes(begin, begin + bytes.size()));
}

QByteArray wholeOf(const Pasteboard& pasteboard) {
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_6_0);
    stream << kVersion << static_cast<quint32>(pasteboard.items().size());
    for (const PasteboardItem& item : pasteboard.items()) {
        const auto types = item.types();
        stream << static_cast<quint32>(types.size());
        for (const std::string& type : types) {
            const Value& value = item.valueForType(type);
            stream << QByteArray::fromStdString(type) << isText(value) << isCarried(value)
                   << bytesOf(value);
        }
    }
    return bytes;
}

std::optional<PasteboardItem> itemFrom(QDataStream& stream) {
    PasteboardItem item;
    quint32 count = 0;
    stream >> count;
    if (count > kMostEntries) return std::nullopt;
    for (quint32 i = 0; i < count; ++i) {
        QByteArray type;
        QByteArray bytes;
        bool text = false;
        bool carried = false;
        stream >> type >> text >> carried >> bytes;
        if (stream.status() != QDataStream::Ok) return std::nullopt;
        if (carried) item.setValue(type.toStdString(), valueOf(bytes, text));
    }
    return item;
}

std::optional<Pasteboard> pasteboardFromWhole(const QByteArray& bytes) {
    QDataStream stream(bytes);
    stream.setVersion(QDataStream::Qt_6_0);
    quint32 version = 0;
    quint32 count = 0;
    stream >> version >> count;
    if (version != kVersion || count > kMostEntries) return std::nullopt;
    Pasteboard pasteboard;
    for (quint32 i = 0; i < count; ++i) {
        auto item = itemFrom(stream);
        if (!item || stream.status() != QDataStream::Ok) return std::nullopt;
        pasteboard.addItem(*std::move(item));
    }
    return pasteboard;
}

struct NamedURL {
    QString url;
    QString name;
};

QString utf16Of(const QMimeData& data, const QString& format) {
    QStringDecoder decoder(QStringDecoder::Utf16LE);
    const QString text = decoder(data.data(format));
    return text;
}

NamedURL namedURLFrom(const QString& text) {
    const auto lineBreak = text.indexOf(QLatin1Char('\n'));
    if (lineBreak < 0) return {text.trimmed(), {}};
    return {text.left(lineBreak).trimmed(), text.mid(lineBreak + 1).trimmed()};
}

NamedURL browserURL(const QMimeData& data) {
    NamedURL found = namedURLFrom(utf16Of(data, kBrowserURLFormat));
    if (!found.name.isEmpty()) return found;
    NamedURL old = namedURLFrom(QString::fromUtf8(data.data(kOldBrowserURLFormat)));
    return old.url.isEmpty() ? found : old;
}

QString nameOfFirstURL(const QMimeData& data, const NamedURL& fromBrowser) {
    const QString own = qString(platform::kPasteboardTypeURLName);
    if (data.hasFormat(own)) return QString::fromUtf8(data.data(own));
    return fromBrowser.name.isEmpty() ? utf16Of(data, kBrowserNameFormat).trimmed()
                                      : fromBrowser.name;
}

std::vector<NamedURL> urlsIn(const QMimeData& data) {
    std::vector<NamedURL> urls;
    for (const QUrl& url : data.urls())
        urls.push_back({QString::fromUtf8(url.toEncoded()), {}});
    // Not asked for first: among the formats of what another program drags, the desktop calls it a
    // list of URLs.
    const NamedURL named = browserURL(data);
    if (urls.empty() && !named.url.isEmpty()) urls.push_back(named);
    if (urls.empty()) return urls;
    urls.front().name = nameOfFirstURL(data, named);
    return urls;
}

}  // namespace

std::unique_ptr<QMimeData> mimeDataOf(const Pasteboard& pasteboard) {
    auto data = std::make_unique<QMimeData>();
    if (pasteboard.items().empty()) return data;
    QStringList texts;
    for (const std::string& text : pasteboard.textsForType(platform::kPasteboardTypeString))
        texts.append(qString(text));
    if (!texts.isEmpty()) data->setText(texts.join(QLatin1Char('\n')));
    QList<QUrl> urls;
    for (const PasteboardItem& item : pasteboard.items()) {
        const Value& value = item.valueForType(platform::kPasteboardTypeURL);
        if (isText(value)) urls.append(QUrl::fromEncoded(bytesOf(value)));
    }
    if (!urls.isEmpty()) data->setUrls(urls);
    const PasteboardItem& first = pasteboard.items().front();
    for (const std::string& type : first.types())
        if (type != platform::kPasteboardTypeString && type != platform::kPasteboardTypeURL &&
            isCarried(first.valueForType(type)))
            data->setData(qString(type), bytesOf(first.valueForType(type)));
    data->setData(kWholeFormat, wholeOf(pasteboard));
    return data;
}

Pasteboard pasteboardOf(const QMimeData& data) {
    if (data.hasFormat(kWholeFormat))
        if (auto whole = pasteboardFromWhole(data.data(kWholeFormat))) return *std::move(whole);
    Pasteboard pasteboard;
    PasteboardItem first;
    const auto urls = urlsIn(data);
    if (!urls.empty()) {
        first.setValue(platform::kPasteboardTypeURL, urls.front().url.toStdString());
        if (!urls.front().name.isEmpty())
            first.setValue(platform::kPasteboardTypeURLName, urls.front().name.toStdString());
    }
    // Asked for by its format: the plain question for a text falls back to the URLs.
    if (data.hasFormat(kTextFormat))
        first.setValue(platform::kPasteboardTypeString, data.text().toStdString());
    for (const QString& format : data.formats())
        if (format != kTextFormat && format != kURLFormat && format != kWholeFormat &&
            !first.hasType(format.toStdString()))
            first.setValue(format.toStdString(), valueOf(data.data(format), false));
    if (!first.isEmpty()) pasteboard.addItem(std::move(first));
    for (std::size_t i = 1; i < urls.size(); ++i) {
        PasteboardItem item;
        item.setValue(platform::kPasteboardTypeURL, urls[i].url.toStdString());
        pasteboard.addItem(std::move(item));
    }
    return pasteboard;
}

}  // namespace corvane::qt
