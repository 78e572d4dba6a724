#include <optional>

#include "configurator/checks/CheckRun.h"
#include "configurator/checks/PictureSize.h"
#include "launch/PathHelpers.h"
#include "text/Text.h"

namespace tarvex {
namespace {

constexpr std::uint32_t kScreenWidth = 1920;
constexpr std::uint32_t kScreenHeight = 1080;

/// The picture file as this system names it; Windows takes "/" as well. The folder may be a
/// relative one: what lies above it is the system's to find.
std::u16string PicturePath(const CheckRun& run) {
    const std::u16string folder = text::Replace(run.Folder().path, u"/", u"\\");
    const std::u16string_view given = run.Value(kFieldPicPath);
    std::u16string path = folder;
    if (given.starts_with(u"..\\")) {
        path = JoinPath(folder, given);
    } else if (!given.empty()) {
        path = RelToAbs(given, folder);
    }
    return text::Replace(JoinPath(path, run.Value(kFieldPicFilename)), u"\\", u"/");
}

std::optional<PictureSize> SizeOfFile(FileStore& store, std::u16string_view path) {
    try {
        return store.FileExists(path) ? ReadPictureSize(store.ReadAll(path)) : std::nullopt;
    } catch (const FileFailure&) {
        return std::nullopt;  // whether the launcher can read it is not known here
    }
}

void CheckSize(CheckRun& run) {
    if (run.Folder().store == nullptr) {
        return;
    }
    const auto size = SizeOfFile(*run.Folder().store, PicturePath(run));
    if (size && (size->width > kScreenWidth || size->height > kScreenHeight)) {
        run.Report(u"picture-too-large", kFieldPicFilename,
                   u"Das Bild ist " + text::Decimal(size->width) + u" x " +
                       text::Decimal(size->height) +
                       u" Bildpunkte groß und wird nicht verkleinert; übliche Bildschirme haben "
                       u"höchstens " +
                       text::Decimal(kScreenWidth) + u" x " + text::Decimal(kScreenHeight) + u".");
    }
}

}  // namespace

void CheckPicture(CheckRun& run) {
    const bool hasList = run.HasKeyList(kPicRegList);
    const std::u16string_view file = run.Value(kFieldPicFilename);
    if (!hasList && run.IsSet(kFieldPicPath) && file.empty()) {
        run.Report(u"picture-path-alone", kFieldPicPath,
                   u"Der Pfad wird nicht verwendet, solange PicFilename leer ist.");
    }
    if (!file.empty() && !IsPictureName(file)) {
        run.Report(u"picture-type", kFieldPicFilename,
                   u"Der Bildtyp von '" + std::u16string(file) +
                       u"' ist unbekannt; möglich sind .bmp und .jpg.");
    }
    const std::u16string_view delay = run.Value(kFieldPicDelay);
    const bool isOff = !delay.empty() && text::ParseInt32(delay) == 0;
    const bool hasPicture = hasList || !file.empty();
    if (!delay.empty() && !isOff && !hasPicture) {
        run.Report(u"delay-without-picture", kFieldPicDelay,
                   u"Eine Anzeigedauer ist angegeben, aber kein Startbild.");
    }
    if (delay.empty() && hasPicture) {
        run.Report(u"picture-without-delay", kFieldPicDelay,
                   u"Ein Startbild ist angegeben, aber keine Anzeigedauer; es wird nicht "
                   u"angezeigt. Die Dauer in Millisekunden angeben, oder 0, wenn das so gemeint "
                   u"ist.");
    }
    if (!hasList && !file.empty() && !isOff) {
        CheckSize(run);
    }
}

}  // namespace tarvex
