#include "window/main/Menu.h"

#include "text/Text.h"

namespace tarvex {
namespace {

constexpr std::int32_t kPageUp = 0x21;
constexpr std::int32_t kPageDown = 0x22;
constexpr std::int32_t kF1 = 0x70;
constexpr std::int32_t kF12 = 0x7b;

constexpr Shortcut Ctrl(char16_t letter) {
    return {letter, true, false};
}

constexpr Shortcut FunctionKey(std::int32_t number) {
    return {kF1 + number - 1, false, false};
}

std::u16string KeyText(std::int32_t key) {
    if (key >= kF1 && key <= kF12) {
        return u"F" + text::Decimal(key - kF1 + 1);
    }
    if (key == kPageUp) {
        return u"Bild auf";
    }
    if (key == kPageDown) {
        return u"Bild ab";
    }
    return std::u16string(1, static_cast<char16_t>(key));
}

}  // namespace

std::u16string Shortcut::Text() const {
    if (key == 0) {
        return {};
    }
    return std::u16string(ctrl ? u"Strg+" : u"") + (shift ? u"Umschalt+" : u"") + KeyText(key);
}

const std::vector<Menu>& Menus() {
    static const std::vector<Menu> menus = {
        {u"&Datei",
         {{Command::New, u"&Neu…", Ctrl(u'N')},
          {Command::Open, u"Ö&ffnen…", Ctrl(u'O')},
          {Command::Save, u"&Speichern", Ctrl(u'S')},
          {Command::SaveAs, u"Speichern &unter…", {u'S', true, true}},
          {},
          {Command::Import, u"Einstellungen &importieren…"},
          {Command::Export, u"Einstellungen &exportieren…"},
          {Command::CarryOver, u"Ü&bernehmen aus älterem Startprogramm…"},
          {Command::Compare, u"&Vergleichen mit…"},
          {},
          {Command::RecentFiles},
          {},
          {Command::Exit, u"Been&den"}}},
        {u"&Bearbeiten",
         {{Command::Undo, u"&Rückgängig", Ctrl(u'Z'), true},
          {Command::Revert, u"Auf &gespeicherten Wert zurück"},
          {},
          {Command::Search, u"&Suchen", Ctrl(u'F')},
          {Command::Replace, u"&Ersetzen…", Ctrl(u'H')}}},
        {u"&Ansicht",
         {{Command::TogglePreview, u"&Vorschau"},
          {Command::Refresh, u"&Aktualisieren", FunctionKey(5)},
          {Command::ChoosePcs, u"&PC-Beschreibungen wählen…"},
          {},
          {Command::NextArea, u"Nächster &Bereich", FunctionKey(6)},
          {Command::PreviousArea, u"V&origer Bereich", {kF1 + 5, false, true}},
          {Command::NextPage, u"&Nächste Seite", {kPageDown, true, false}},
          {Command::PreviousPage, u"Vo&rige Seite", {kPageUp, true, false}}}},
        {u"&Werkzeuge",
         {{Command::Check, u"&Prüfen", FunctionKey(7)},
          {Command::DryRun, u"Probe&lauf", FunctionKey(8)},
          {Command::Start, u"&Starten", FunctionKey(9)},
          {},
          {Command::AsCommand, u"Als &Befehl…"},
          {Command::CompareLog, u"Mit Protokoll &vergleichen…"},
          {Command::DescribePc, u"&Diesen PC beschreiben…"}}},
        {u"&Hilfe",
         {{Command::PageHelp, u"&Hilfe zu dieser Seite", FunctionKey(1)},
          {},
          {Command::About, u"&Info"}}},
    };
    return menus;
}

const std::vector<MenuEntry>& ToolButtons() {
    static const std::vector<MenuEntry> buttons = {{Command::Open, u"Öffnen"},
                                                   {Command::Save, u"Speichern"},
                                                   {Command::Check, u"Prüfen"},
                                                   {Command::DryRun, u"Probelauf"},
                                                   {Command::Start, u"Starten"}};
    return buttons;
}

}  // namespace tarvex
