#include "app/StartPicture.h"

#include <algorithm>

#include "branding/BrandFields.h"
#include "launch/PathHelpers.h"
#include "text/Text.h"

namespace tarvex {

namespace {

constexpr std::int32_t kDefaultDelay = 5000;
constexpr std::u16string_view kNotThere = u"Bild nicht vorhanden an dieser Position";

std::optional<std::u16string> PathOf(DiagnosticLog& log, const KeyListEntry& entry,
                                     const std::u16string& value) {
    if (entry.fileName.empty()) {
        return PathWithoutFileName(log, entry, value, u"Bildname");
    }
    std::u16string folder = value;
    if (!entry.subFolder.empty()) {
        folder = JoinPath(folder, entry.subFolder);
        log.AddLog(u"Schlüsselinhalt um Unterpfad ergänzt: " + folder);
    }
    std::u16string path = JoinPath(folder, entry.fileName);
    log.AddLog(u"Schlüsselinhalt um Dateiname ergänzt: " + path);
    return path;
}

std::optional<std::u16string> PictureCandidate(DiagnosticLog& log, const KeyListEntry& entry,
                                               const std::u16string& value) {
    std::optional<std::u16string> path = PathOf(log, entry, value);
    if (path && !IsPictureName(*path)) {
        log.AddLog(u"Fehler: Dateiname ist unzulässig");
        return std::nullopt;
    }
    if (path) {
        log.AddLog(u"Dateiname ist zulässig");
    }
    return path;
}

}  // namespace

constexpr KeyListRules kPictureListRules = {PictureCandidate, {}, {}, kNotThere};

StartPicture::StartPicture(const LaunchEnvironment& environment, const cuAppError& appError)
    : environment_(environment), appError_(appError) {}

void StartPicture::StartupPictureSettings(const pSettings& settings) {
    path_.clear();
    delay_ = kDefaultDelay;
    report_.Clear();
    AddPictureReportLine(appError_.MsgLoad(Message::PictureHeading));

    delay_ = std::max(text::ParseInt32(settings.Value(kFieldPicDelay, u"0")).value_or(0), 0);
    if (delay_ == 0) {
        AddPictureReportLine(u"Dauer: 0, Bild wird nicht angezeigt");
        return;
    }
    if (HasPicRegLists(settings)) {
        path_ =
            WalkKeyList(environment_, {}, report_, settings.KeyList(kPicRegList), kPictureListRules)
                .value_or(std::u16string());
    } else {
        path_ = ResolveFolder(settings);
    }
    Check();
}

void StartPicture::AddPictureReportLine(std::u16string_view line, bool emptyLineBefore) {
    report_.AddLog(line, emptyLineBefore);
}

bool StartPicture::HasPicRegLists(const pSettings& settings) {
    return !settings.KeyList(kPicRegList).empty();
}

std::u16string StartPicture::ResolveFolder(const pSettings& settings) {
    const std::u16string folder = settings.Value(kFieldPicPath);
    const std::u16string name = settings.Value(kFieldPicFilename);
    AddPictureReportLine(u"Gespeicherter Pfad: " + folder);
    if (name.empty()) {
        AddPictureReportLine(folder.empty() ? u"Kein Startbild angegeben"
                                            : u"Fehler: Pfad ist angegeben, aber kein Dateiname");
        return {};
    }
    AddPictureReportLine(u"Dateiname: " + name);
    std::u16string path = folder.empty() ? JoinPath(environment_.program.folder, name)
                                         : RelToAbs(folder, environment_.program.folder) + name;
    AddPictureReportLine(u"Verwendeter Pfad: " + path);
    return path;
}

void StartPicture::Check() {
    if (path_.empty()) {
        delay_ = 0;
        return;
    }
    if (environment_.files.FileExists(path_)) {
        AddPictureReportLine(u"Startbild: " + path_);
        AddPictureReportLine(u"Startbild: OK");
        AddPictureReportLine(u"Dauer: " + text::Decimal(delay_));
        return;
    }
    AddPictureReportLine(kNotThere);
    path_.clear();
    delay_ = 0;
}

}  // namespace tarvex
