#include "corvane/qt/ImageCatalog.h"

#include "corvane/platform/StringTable.h"
#include "corvane/qt/ImageResourceName.h"
#include "corvane/qt/QtImage.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <QStandardPaths>
#include <QString>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <memory>
#include <optional>
#include <utility>

namespace corvane::qt {

namespace {

/// The directories of an icon set, as places below those where programs share their data.
constexpr std::string_view kDirectoryKey = "@directory";

/// Fine shapes blur when they are small, so there they take up more of their square.
constexpr double kSmallSide = 16;
constexpr double kSmallGain = 1.15;

/// The length nearest to it that stands in the middle of the other without halves of pixels.
int centered(double length, double outer) {
    const int whole = static_cast<int>(std::lround(outer));
    return whole - 2 * static_cast<int>(std::lround((whole - length) / 2));
}

/// A picture whose size was asked for need not be parsed again for its pixels, once. It has its
/// bytes in memory: there may be more of them than a program may have files open.
class OpenPicture {
  public:
    explicit OpenPicture(const QString& path) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) return;
        bytes_.setData(file.readAll());
        bytes_.open(QIODevice::ReadOnly);
        reader_.setDevice(&bytes_);
        reader_.setFormat(QFileInfo(path).suffix().toLower().toLatin1());
    }

    /// Empty unless there is a plug-in for the file that understands it.
    QSize size() const { return reader_.size(); }
    /// Null where it cannot be read. Nothing comes after it.
    QImage pixels(QSize size) {
        reader_.setScaledSize(size);
        return reader_.read();
    }

  private:
    QBuffer bytes_;
    QImageReader reader_;
};

class FileImage final : public QtImage {
  public:
    FileImage(double side, QString path, std::unique_ptr<OpenPicture> picture, double portion)
        : QtImage({side, side}),
          path_(std::move(path)),
          shape_(picture->size()),
          portion_(portion),
          picture_(std::move(picture)) {}

  protected:
    void paint(QPainter& painter, double scale, platform::Appearance) const override {
        const double pixels = size().width * scale;
        const double gain = size().width <= kSmallSide ? kSmallGain : 1;
        const double longest = pixels * std::min(portion_ * gain, 1.0);
        const QSizeF shape = QSizeF(shape_).scaled(longest, longest, Qt::KeepAspectRatio);
        const QSize wanted(centered(shape.width(), pixels), centered(shape.height(), pixels));
        const auto picture = picture_ ? std::move(picture_) : std::make_unique<OpenPicture>(path_);
        QImage image = picture->pixels(wanted.expandedTo({1, 1}));
        if (image.isNull()) return;
        image.setDevicePixelRatio(scale);
        painter.drawImage(
            QPointF((pixels - image.width()) / 2 / scale, (pixels - image.height()) / 2 / scale),
            image);
    }

  private:
    QString path_;
    QSize shape_;
    double portion_;
    mutable std::unique_ptr<OpenPicture> picture_;  ///< until it is first painted
};

/// "envelope.svg", or "envelope.svg 60%".
std::optional<ImageCatalog::Entry> parsedEntry(std::string_view text) {
    ImageCatalog::Entry entry;
    auto blank = text.find_first_of(" \t");
    entry.file = text.substr(0, blank);
    if (blank == text.npos) return entry;
    auto percent = text.substr(text.find_first_not_of(" \t", blank));
    int number = 0;
    auto [end, error] = std::from_chars(percent.data(), percent.data() + percent.size(), number);
    const std::string_view rest(end,
                                static_cast<std::size_t>(percent.data() + percent.size() - end));
    if (error != std::errc() || rest != "%" || number < 1 || number > 100) return std::nullopt;
    entry.portion = number / 100.0;
    return entry;
}

std::vector<std::string> dataDirectories(const std::string& place) {
    std::vector<std::string> found;
    for (const auto& path :
         QStandardPaths::locateAll(QStandardPaths::GenericDataLocation,
                                   QString::fromStdString(place), QStandardPaths::LocateDirectory))
        found.push_back(path.toStdString());
    return found;
}

}  // namespace

ImageCatalog ImageCatalog::parse(std::string_view table) {
    auto parsed = platform::StringTable::parse(table);
    ImageCatalog catalog;
    for (const auto& problem : parsed.problems)
        catalog.problems_.push_back("line " + std::to_string(problem.line) + ": " +
                                    problem.message);
    for (const auto& [name, text] : parsed.table.entries()) {
        if (name == kDirectoryKey)
            catalog.directories_ = dataDirectories(text);
        else if (auto entry = parsedEntry(text))
            catalog.entries_.emplace(name, std::move(*entry));
        else
            catalog.problems_.push_back(name + ": not a file and a percentage");
    }
    return catalog;
}

platform::ImagePtr ImageCatalog::imageNamed(std::string_view name) {
    const auto parts = ImageResourceName::parse(name);
    auto entry = entries_.find(parts.base);
    if (entry == entries_.end()) return nullptr;
    for (const auto& directory : directories_) {
        auto path = QString::fromStdString(directory + "/" + entry->second.file);
        auto picture = std::make_unique<OpenPicture>(path);
        if (!picture->size().isEmpty())
            return std::make_shared<FileImage>(parts.side, std::move(path), std::move(picture),
                                               entry->second.portion);
    }
    return nullptr;
}

void ImageCatalog::setDirectories(std::vector<std::string> directories) {
    directories_ = std::move(directories);
}

}  // namespace corvane::qt
