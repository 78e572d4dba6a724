#include "configurator/FileTexts.h"

#include "errors/RaisedError.h"

namespace tarvex {

std::u16string_view FileProblemText(FileProblem problem) {
    switch (problem) {
        case FileProblem::NotFound:
            return u"Die Datei ist nicht vorhanden.";
        case FileProblem::PathNotFound:
            return u"Der Ordner der Datei ist nicht vorhanden, oder der Pfad ist ungültig.";
        case FileProblem::AccessDenied:
            return u"Die Datei ist schreibgeschützt, oder das Recht für den Zugriff fehlt.";
        case FileProblem::InUse:
            return u"Die Datei ist in Benutzung; läuft das Programm noch?";
        case FileProblem::DiskFull:
            return u"Der Datenträger ist voll.";
        case FileProblem::IsFolder:
            return u"Das ist ein Ordner, keine Datei.";
        case FileProblem::NotAFile:
            return u"Das ist eine Pipe oder ein Gerät, keine Datei.";
        case FileProblem::ReadOnlyMedium:
            return u"Der Datenträger ist schreibgeschützt.";
        case FileProblem::Exists:
            return u"Die Datei ist schon vorhanden; --force ersetzt sie.";
        case FileProblem::Locked:
            return u"Ein anderes Programm ändert die Datei gerade; nach 10 Sekunden wurde nicht "
                   u"länger gewartet.";
        case FileProblem::Device:
            break;
    }
    return u"Beim Lesen oder Schreiben der Datei ist ein Fehler des Geräts aufgetreten.";
}

std::u16string CaughtText() {
    try {
        throw;
    } catch (const FileFailure& failure) {
        return std::u16string(FileProblemText(failure.problem));
    } catch (...) {
        return CurrentError().description;
    }
}

}  // namespace tarvex
