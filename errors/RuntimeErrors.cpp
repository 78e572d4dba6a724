#include "errors/RuntimeErrors.h"

namespace tarvex {

namespace {

std::u16string_view TextOf(RuntimeError error) {
    switch (error) {
        case RuntimeError::InvalidCall:
            return u"Ungültiger Prozeduraufruf oder ungültiges Argument";
        case RuntimeError::Overflow:
            return u"Überlauf";
        case RuntimeError::OutOfMemory:
            return u"Nicht genügend Speicher";
        case RuntimeError::IndexOutOfRange:
            return u"Index außerhalb des gültigen Bereichs";
        case RuntimeError::TypeMismatch:
            return u"Typen unverträglich";
        case RuntimeError::BadFileNumber:
            return u"Dateiname oder -nummer falsch";
        case RuntimeError::FileNotFound:
            return u"Datei nicht gefunden";
        case RuntimeError::DeviceIo:
            return u"E/A-Fehler";
        case RuntimeError::DiskFull:
            return u"Datenträger voll";
        case RuntimeError::PermissionDenied:
            return u"Zugriff verweigert";
        case RuntimeError::PathFileAccess:
            return u"Fehler beim Zugriff auf Pfad/Datei";
        case RuntimeError::PathNotFound:
            return u"Pfad nicht gefunden";
        case RuntimeError::ObjectNotSet:
            return u"Objektvariable nicht festgelegt";
        case RuntimeError::DuplicateKey:
            return u"Dieser Schlüssel ist bereits einem Element dieser Auflistung zugeordnet";
        case RuntimeError::Internal:
            break;
    }
    return u"Interner Fehler";
}

}  // namespace

RaisedError MakeError(RuntimeError error, std::u16string_view detail) {
    RaisedError raised;
    raised.number = NumberOf(error);
    raised.description = TextOf(error);
    if (error == RuntimeError::Internal && !detail.empty()) {
        raised.description.append(u": ").append(detail);
    }
    return raised;
}

}  // namespace tarvex
