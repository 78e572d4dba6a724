#include "errors/RuntimeErrors.h"

namespace tarvex {

namespace {

std::u16string_view TextOf(std::int32_t number) {
    switch (number) {
        case runtime_error::kInvalidCall:
            return u"Ungültiger Prozeduraufruf oder ungültiges Argument";
        case runtime_error::kOverflow:
            return u"Überlauf";
        case runtime_error::kOutOfMemory:
            return u"Nicht genügend Speicher";
        case runtime_error::kIndexOutOfRange:
            return u"Index außerhalb des gültigen Bereichs";
        case runtime_error::kTypeMismatch:
            return u"Typen unverträglich";
        case runtime_error::kBadFileNumber:
            return u"Dateiname oder -nummer falsch";
        case runtime_error::kFileNotFound:
            return u"Datei nicht gefunden";
        case runtime_error::kDeviceIo:
            return u"E/A-Fehler";
        case runtime_error::kDiskFull:
            return u"Datenträger voll";
        case runtime_error::kPermissionDenied:
            return u"Zugriff verweigert";
        case runtime_error::kPathFileAccess:
            return u"Fehler beim Zugriff auf Pfad/Datei";
        case runtime_error::kPathNotFound:
            return u"Pfad nicht gefunden";
        case runtime_error::kObjectNotSet:
            return u"Objektvariable nicht festgelegt";
        case runtime_error::kDuplicateKey:
            return u"Dieser Schlüssel ist bereits einem Element dieser Auflistung zugeordnet";
        default:
            return u"Interner Fehler";
    }
}

}  // namespace

RaisedError RuntimeError(std::int32_t number, std::u16string_view detail) {
    RaisedError error;
    error.number = number;
    error.description = TextOf(number);
    if (number == runtime_error::kInternal && !detail.empty()) {
        error.description.append(u": ").append(detail);
    }
    return error;
}

}  // namespace tarvex
