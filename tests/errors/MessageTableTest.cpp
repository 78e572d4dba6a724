#include "errors/MessageTable.h"

#include <gtest/gtest.h>

#include <map>

namespace tarvex {
namespace {

const std::map<std::int32_t, std::u16string> kExpected = {
    {101, u"Kann den Eintrag des Profiles '##' nicht in der Registry finden."},
    {102, u"## kann nicht ausgeführt werden."},
    {103,
     u"Der Datenbankpfad kann aus den benutzerdefinierten Registry-Einträgen nicht ermittelt "
     u"werden."},
    {104,
     u"Das Startprogramm enthält keine Pfadinformationen für die zu startende Datenbank.@@Benutzen "
     u"Sie das Tarvex-Konfigurationsprogramm, um das Startprogramm korrekt einzustellen."},
    {105, u"Kann die Datenbank '##' nicht finden."},
    {106, u"System-Datenbank ''##' nicht gefunden."},
    {107, u"Die Ausführung der Befehlszeile '##' ist fehlgeschlagen."},
    {108,
     u"Der Pfad des Startbildes kann aus den benutzerdefinierten Registry-Einträgen nicht "
     u"ermittelt werden."},
    {109, u"Kann das Startbild '##' nicht finden."},
    {111,
     u"Der Access-Pfad kann aus den benutzerdefinierten Registry-Einträgen nicht ermittelt "
     u"werden."},
    {112, u"Der Access-Pfad kann nicht aus der Registry ermittelt werden."},
    {113, u"Datei '##' nicht gefunden."},
    {114, u"Kann den Pfad der Systemdatenbank nicht aus der Registry ermitteln."},
    {115, u"Das Startprogramm würde die folgende Befehlszeile ausführen:"},
    {116, u"[Weitere Parameter]"},
    {117,
     u"Im Startprogramm '##' wurden keine Parameter gesetzt.@@Verwenden Sie das "
     u"Tarvex-Konfigurationsprogramm, um die Parameter für die zu ladende Access-Datenbank "
     u"einzustellen."},
    {118, u"Logfile schreiben: Ja"},
    {119, u"Logfile schreiben: Nein"},
    {120, u"[Startbild]"},
    {121, u"Fehler beim Lesen der Konstante '##'."},
    {122,
     u"## kann aufgrund eines unerwarteten Fehlers nicht ausgeführt werden.@@Klicken Sie auf "
     u"<Details>, um erweiterte Fehlerinformationen anzuzeigen."},
    {125, u"&Beenden"},
    {126, u"&Details"},
    {127, u"&Hilfe"},
    {128, u"Die Hilfedatei '##' wurde nicht gefunden."},
    {130, u"Die Hilfedatei '##' konnte nicht mit dem Hilfethema ## geöffnet werden."},
    {131, u"## - Erweiterte Fehlerinformationen:"},
    {133, u"Diagnosetext speichern"},
    {134, u"Fehlerprotokolle (*.err)|*.err|Alle Dateien (*.*)|*.*"},
    {135, u"##@@@@##"},
    {136, u"<nicht angezeigt>"},
    {137, u"Das Kennwort für die Diagnoseinformationen ist falsch."},
    {138,
     u"Das Startprogramm würde die folgende Befehlszeile ausführen. Wegen der unten aufgeführten "
     u"Fehler konnte sie nicht vollständig zusammengestellt werden:"},
    {139, u"Das Startprogramm kann nicht ausgeführt werden."}};

TEST(MessageTableTest, HoldsTheseTextsAndNoOthers) {
    const MessageTable table;
    for (std::int32_t id = -200; id <= 400; ++id) {
        const auto expected = kExpected.find(id);
        EXPECT_EQ(table.Load(id), expected == kExpected.end() ? std::u16string() : expected->second)
            << id;
    }
}

}  // namespace
}  // namespace tarvex
