#pragma once

#include "tests/support/FakeForm.h"

namespace tarvex {

/// A form with every kind of row, with texts as long as those of the pages.
inline FakeForm SampleForm() {
    FakeForm form;
    form.rows = {
        {.kind = RowKind::Heading, .id = 100, .label = u"Datenbank"},
        {.kind = RowKind::Text,
         .id = 101,
         .label = u"So findet das Startprogramm die Datenbank, die es mit Access öffnet. "
                  u"Umgebungsvariablen wie %APPDATA% sind in Ordnern erlaubt:"},
        {.kind = RowKind::Radio,
         .id = 1,
         .label = u"&neben dem Startprogramm, gleicher Name (.mdb .mde .mda)",
         .group = 1},
        {.kind = RowKind::Radio,
         .id = 2,
         .label = u"an einem &festen Ort",
         .hint = u"Ein Ordner mit Laufwerk, oder relativ zum Ordner des Startprogramms.",
         .group = 1},
        {.kind = RowKind::Line,
         .id = 3,
         .label = u"&Ordner:",
         .name = u"DBPath",
         .hint = u"Ordner der Datenbank, ohne Dateinamen.",
         .indent = 1,
         .buttons = {{2003, u"...", u"Ordner wählen"}}},
        {.kind = RowKind::Line,
         .id = 4,
         .label = u"Name der &Datenbankdatei mit ihrer Endung:",
         .name = u"DBName",
         .hint = u"Zum Beispiel Kunden.mdb.",
         .indent = 1,
         .chars = 24},
        {.kind = RowKind::Secret,
         .id = 5,
         .label = u"&Kennwort:",
         .name = u"Password",
         .hint = u"Kennwort des Benutzers in der Arbeitsgruppe."},
        {.kind = RowKind::Lines,
         .id = 6,
         .label = u"&Meldung:",
         .name = u"MsgNoDatabase",
         .hint = u"Erscheint, wenn die Datenbank fehlt. %1 steht für den Ordner.",
         .lines = 3},
        {.kind = RowKind::Check,
         .id = 7,
         .label = u"E&xklusiv öffnen",
         .name = u"Exclusive",
         .hint = u"Andere können die Datenbank dann nicht gleichzeitig verwenden."},
        {.kind = RowKind::Check, .id = 8, .label = u"Mit &Runtime starten", .name = u"Runtime"},
        {.kind = RowKind::Choice,
         .id = 9,
         .label = u"&Version:",
         .name = u"AccessVersion",
         .hint = u"Die älteste Version, die genügt.",
         .chars = 16},
        {.kind = RowKind::List,
         .id = 10,
         .label = u"&Schlüssel der Registrierung:",
         .name = u"DBKeyList",
         .hint = u"Der erste Eintrag, dessen Datei es gibt, gilt.",
         .lines = 4,
         .buttons = {{110, u"&Neu ...", {}, ButtonKey::Insert},
                     {111, u"&Bearbeiten ...", {}, ButtonKey::Enter},
                     {112, u"&Löschen", {}, ButtonKey::Delete},
                     {113, u"&Auf", {}, ButtonKey::Up},
                     {114, u"A&b", {}, ButtonKey::Down},
                     {115, u"Einfü&gen", {}, ButtonKey::Paste}},
         .columns = {u"Schlüssel", u"Wert", u"Unterordner", u"Datei"}},
        {.kind = RowKind::Output, .id = 11, .label = u"&Protokoll:", .lines = 4, .grows = true},
        {.kind = RowKind::Buttons,
         .buttons = {{120, u"Auf gespeicherten Wert &zurück"}, {121, u"&Hilfe"}}},
    };
    form.states[2].checked = true;
    form.states[3].text = u"C:\\Daten\\Kunden";
    form.states[3].note = u"noch 85 von 100 Zeichen";
    form.states[4].text = u"Kunden?.mdb";
    form.states[4].message = u"Das Zeichen ? ist in einem Dateinamen nicht erlaubt.";
    form.states[4].note = u"noch 39 von 50 Zeichen";
    form.states[5].text = u"geheim";
    form.states[5].note = u"noch 14 Zeichen";
    form.states[6].text =
        u"Die Datenbank wurde in %1 nicht gefunden.\r\nBitte den Händler anrufen.";
    form.states[6].note = u"noch 180 von 250 Zeichen";
    form.states[7].checked = true;
    form.states[9].choices = {u"Access 2000", u"Access 2003", u"Access 2010"};
    form.states[9].selected = 1;
    form.states[10].items = {
        {u"HKLM\\SOFTWARE\\Muster\\Kunden", u"Installationspfad", u"Daten", u"Kunden.mdb"},
        {u"HKCU\\SOFTWARE\\Muster", u"Pfad", u"", u"Kunden.mdb"}};
    form.states[10].selected = 0;
    form.states[10].disabledButtons = {113};
    form.states[11].text = u"[Datenbank]\r\nC:\\Kunden\\Daten\\Kunden.mdb: vorhanden\r\n";
    return form;
}

}  // namespace tarvex
