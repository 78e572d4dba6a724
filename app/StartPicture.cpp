#include "app/StartPicture.h"

#include <algorithm>

#include "branding/BrandFields.h"
#include "launch/LaunchErrors.h"
#include "launch/PathHelpers.h"
#include "text/Text.h"

namespace tarvex {

namespace {

constexpr std::int32_t kDefaultDelay = 5000;
constexpr std::u16string_view kNotThere = u"Bild nicht vorhanden an dieser Position";

bool IsPictureName(std::u16string_view path) {
    return text::EndsWithIgnoreCase(path, u".bmp") || text::EndsWithIgnoreCase(path, u".jpg");
}

}  // namespace

StartPicture::StartPicture(const LaunchEnvironment& environment, const cuAppError& appError)
    : environment_(environment), appError_(appError) {}

void StartPicture::StartupPictureSettings(const pSettings& settings) {
    path_.clear();
    delay_ = kDefaultDelay;
    report_.clear();
    AddPictureReportLine(appError_.MsgLoad(120));

    delay_ = std::max(text::ParseInt32(settings.Value(kFieldPicDelay, u"0")).value_or(0), 0);
    if (delay_ == 0) {
        AddPictureReportLine(u"Dauer: 0, Bild wird nicht angezeigt");
        return;
    }
    path_ = HasPicRegLists(settings) ? ResolveKeyLists(settings) : ResolveFolder(settings);
    Check();
}

void StartPicture::AddPictureReportLine(std::u16string_view line, bool emptyLineBefore) {
    text::AppendWithSeparator(report_, line, emptyLineBefore ? u"\r\n\r\n" : u"\r\n");
}

bool StartPicture::HasPicRegLists(const pSettings& settings) {
    for (int field = kFieldPicRegList01; field <= kFieldPicRegList10; ++field) {
        if (!settings.Value(field).empty()) {
            return true;
        }
    }
    return false;
}

std::u16string StartPicture::ResolveKeyLists(const pSettings& settings) {
    AddPictureReportLine(u"Schlüsselliste wird aufgelöst");
    for (int field = kFieldPicRegList01; field <= kFieldPicRegList10; ++field) {
        const std::u16string entry = settings.Value(field);
        if (entry.empty()) {
            continue;
        }
        const std::optional<std::u16string> candidate = ResolveEntry(entry);
        if (!candidate) {
            continue;
        }
        if (!IsPictureName(*candidate)) {
            AddPictureReportLine(u"Fehler: Dateiname ist unzulässig");
            continue;
        }
        AddPictureReportLine(u"Dateiname ist zulässig");
        if (environment_.files.FileExists(*candidate)) {
            return *candidate;
        }
        AddPictureReportLine(kNotThere);
    }
    return {};
}

std::optional<std::u16string> StartPicture::ResolveEntry(std::u16string_view entry) {
    AddPictureReportLine(u"Gespeicherter Wert: " + std::u16string(entry));
    const KeyListParse parse = ParseKeyListEntry(entry);
    if (parse.launchError != 0) {
        AddPictureReportLine(
            LaunchErrorText(parse.launchError, environment_.program.exeName, entry));
        return std::nullopt;
    }
    const KeyListEntry& parts = parse.entry;
    AddPictureReportLine(u" - HKey: " + std::u16string(HKeyName(parts.root)));
    AddPictureReportLine(u" - Schlüssel: " + parts.keyPath);
    AddPictureReportLine(u" - Wertname: " + parts.valueName);
    AddPictureReportLine(u" - Unterordner: " + parts.subFolder);
    AddPictureReportLine(u" - Dateiname: " + parts.fileName);

    std::u16string value =
        ReadRegistryText(environment_, parts.root, parts.keyPath, parts.valueName);
    if (value.empty()) {
        AddPictureReportLine(u"Schlüsselinhalt: <nicht vorhanden oder kein Inhalt>");
        return std::nullopt;
    }
    AddPictureReportLine(u"Schlüsselinhalt: " + value);
    return CandidateOf(parts, std::move(value));
}

std::optional<std::u16string> StartPicture::CandidateOf(const KeyListEntry& parts,
                                                        std::u16string value) {
    if (parts.fileName.empty()) {
        if (!parts.subFolder.empty()) {
            AddPictureReportLine(u"Unterpfad (" + parts.subFolder +
                                 u") angegeben, aber kein Dateiname. Pfad kann nicht aufgelöst "
                                 u"werden.");
            return std::nullopt;
        }
        if (value.back() == u'\\') {
            AddPictureReportLine(
                u"Schlüsselinhalt enthält einen Pfad und es ist kein Dateiname angegeben. Der "
                u"Bildname kann nicht aufgelöst werden.");
            return std::nullopt;
        }
        return value;
    }
    std::u16string folder = std::move(value);
    if (!parts.subFolder.empty()) {
        folder = JoinPath(folder, parts.subFolder);
        AddPictureReportLine(u"Schlüsselinhalt um Unterpfad ergänzt: " + folder);
    }
    std::u16string path = JoinPath(folder, parts.fileName);
    AddPictureReportLine(u"Schlüsselinhalt um Dateiname ergänzt: " + path);
    return path;
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
