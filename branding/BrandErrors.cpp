#include "branding/BrandErrors.h"

#include "errors/cuAppError.h"
#include "text/Text.h"

namespace tarvex {

namespace {

/// "##" stands for the name.
std::u16string_view ErrorText(BrandError error) {
    switch (error) {
        case BrandError::PositionsDiffer:
            return u"Fehler beim Vergleich der Bytepositionen.\r\nName: ##";
        case BrandError::ItemNotSaved:
            return u"Fehler beim Speichern der Information '##'.";
        case BrandError::AlreadyBranded:
            return u"Die Datei wurde bereits modifiziert.";
        case BrandError::NoItems:
            return u"Es wurden keine Konstanten definiert.";
        case BrandError::NoMarker:
            return u"Die Datei kann nicht modifiziert werden, da sie keine gültige Kennung "
                   u"besitzt.";
        case BrandError::WrongMode:
            return u"Falscher Modus.";
        case BrandError::NoFileName:
            return u"Es wurde kein Dateiname angegeben.";
        case BrandError::FileMissing:
            return u"Die Datei '##' ist nicht vorhanden.";
        case BrandError::NoIdentifier:
            return u"Die Datei '##' kann nicht verwendet werden. Es wurde kein korrekter "
                   u"Identifier gefunden.";
        case BrandError::NoPosition:
            return u"Die Daten von '##' können nicht gelesen werden, da keine Byteposition "
                   u"gespeichert ist.";
        case BrandError::WrongLength:
            return u"Falsche Datensatzlänge.";
    }
    return {};
}

}  // namespace

std::int32_t NumberOf(BrandError error) {
    return cuAppError::kNumberBase + static_cast<std::int32_t>(error);
}

RaisedError MakeError(BrandError error, std::u16string_view name) {
    RaisedError raised;
    raised.number = NumberOf(error);
    raised.description = text::Replace(ErrorText(error), u"##", name);
    return raised;
}

}  // namespace tarvex
