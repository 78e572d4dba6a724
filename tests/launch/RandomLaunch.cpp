#include "tests/launch/RandomLaunch.h"

#include <utility>

namespace tarvex {
namespace {

const std::vector<std::u16string_view> kFolders = {u"C:\\Office",
                                                   u"D:\\Daten\\",
                                                   u"Daten",
                                                   u"..\\Daten",
                                                   u"..\\..\\..\\x\\..\\y",
                                                   u"\\Daten",
                                                   u"\\\\srv\\freig\\db",
                                                   u"C:Daten",
                                                   u"a/b",
                                                   u"..",
                                                   u" D:\\Leer ",
                                                   u"Müller & Söhne",
                                                   u"D:\\a@@b##c",
                                                   u".",
                                                   u"msaccess.exe",
                                                   u"E:\\MSACCESS.EXE"};
const std::vector<std::u16string_view> kFileNames = {
    u"Kunden.mdb", u"System.mdw", u"a b.mdb", u"Größe ##.mde", u"%x.mdb", u"..\\quer.mdb"};
const std::vector<std::u16string_view> kKeys = {u"SOFTWARE\\Firma", u"Software\\Ä", u"A\\B\\C"};
const std::vector<std::u16string_view> kValueNames = {u"Pfad", u"InstallPath", u""};
const std::vector<std::u16string_view> kRoots = {u"HKLM", u"hkcu", u"HKEY_USERS", u"HKCR"};
const std::vector<std::u16string_view> kDamagedEntries = {
    u"", u" ", u"HKLM", u"HKLM\\P", u"FOO\\A\\B", u"%|Filename%|", u"\\", u"%|%%|%"};

std::string Ansi(std::u16string_view text) {
    return TextCodec1252().ToAnsi(text);
}

}  // namespace

RandomLaunch::RandomLaunch(std::uint32_t seed) : seed_(seed), random_(seed) {
    program.folder = Pick({u"C:\\Prog", u"C:\\Prog\\Start", u"C:\\", u"\\\\srv\\freig\\Prog"});
    program.exeName = Pick({u"Start", u"Kunden.neu", u"Größe"});
    DrawSettings();
    DrawRegistry();
    DrawFiles();
    if (Chance(10)) {
        files.failCall = 1 + random_() % 5;
    }
    if (Chance(10)) {
        registry.failCall = 1 + random_() % 5;
    }
}

cuTarvex RandomLaunch::Configure(bool testMode) {
    registry.log.clear();
    files.log.clear();
    cuTarvex tarvex(settings_);
    tarvex.Properties().testMode = testMode;
    return tarvex;
}

std::vector<std::u16string> RandomLaunch::FilesFound() {
    cuTarvex tarvex = Configure(true);
    ErrorOf([&tarvex] { tarvex.GetCommandLine(); });
    std::vector<std::u16string> paths;
    const std::size_t failCall = std::exchange(files.failCall, 0);
    for (const std::u16string& call : std::vector<std::u16string>(files.log)) {
        const std::u16string path = call.substr(std::u16string_view(u"exists ").size());
        if (files.FileExists(path)) {
            paths.push_back(path);
        }
    }
    files.failCall = failCall;
    return paths;
}

std::string RandomLaunch::Describe() const {
    std::u16string all = u"seed " + text::Decimal(seed_);
    const auto add = [&all](std::u16string_view name, std::u16string_view value) {
        if (!value.empty()) {
            all.append(u"\n  ").append(name).append(u" = <").append(value).append(u">");
        }
    };
    add(u"launcher", program.folder + u" | " + program.exeName);
    add(u"RegListSeparator", settings_.Properties().markers.list);
    add(u"AccRegListString", settings_.Properties().accRegListString);
    add(u"AccPath", settings_.Properties().accPath);
    add(u"AccVersion", text::Decimal(settings_.AccVersion()));
    add(u"DBRegListString", settings_.Properties().dbRegListString);
    add(u"DBPath", settings_.Properties().dbPath);
    add(u"DBFilename", settings_.Properties().dbFilename);
    add(u"SystemDBRegListString", settings_.Properties().systemDBRegListString);
    add(u"SystemDBPath", settings_.Properties().systemDBPath);
    add(u"SystemDBFilename", settings_.Properties().systemDBFilename);
    add(u"SystemDBUser", settings_.Properties().systemDBUser);
    add(u"SystemDBPwd", settings_.Properties().systemDBPwd);
    add(u"Profile", settings_.Properties().profile);
    add(u"VerifyProfile", settings_.Properties().verifyProfile ? u"1" : u"");
    add(u"Macro", settings_.Properties().macro);
    add(u"Cmd", settings_.Properties().cmd);
    for (const auto& [isSet, name] : std::initializer_list<std::pair<bool, std::u16string_view>>{
             {settings_.Properties().optionCompact, u"OptionCompact"},
             {settings_.Properties().optionDecompile, u"OptionDecompile"},
             {settings_.Properties().optionExclusive, u"OptionExclusive"},
             {settings_.Properties().optionNoStartup, u"OptionNoStartup"},
             {settings_.Properties().optionReadOnly, u"OptionReadOnly"},
             {settings_.Properties().optionRepair, u"OptionRepair"},
             {settings_.Properties().optionRuntime, u"OptionRuntime"}}) {
        add(name, isSet ? u"1" : u"");
    }
    add(u"failing file call", text::Decimal(static_cast<std::int64_t>(files.failCall)));
    add(u"failing registry call", text::Decimal(static_cast<std::int64_t>(registry.failCall)));
    return text::ToUtf8(all);
}

std::u16string RandomLaunch::Pick(const Choices& choices) {
    return std::u16string(choices[random_() % choices.size()]);
}

std::u16string RandomLaunch::PickOrNothing(const Choices& choices) {
    return Chance(50) ? Pick(choices) : std::u16string();
}

std::u16string RandomLaunch::DrawEntry() {
    if (Chance(15)) {
        return Pick(kDamagedEntries);
    }
    std::u16string entry = Pick(kRoots) + u"\\" + Pick(kKeys) + u"\\" + Pick(kValueNames);
    if (Chance(30)) {
        entry += u"%|SubDir|%" + Pick(kFolders);
    }
    if (Chance(60)) {
        entry += u"%|Filename%|" + Pick(kFileNames);
    }
    return entry;
}

std::u16string RandomLaunch::DrawList() {
    std::u16string list;
    if (Chance(35)) {
        for (std::uint32_t count = 1 + random_() % 4; count > 0; --count) {
            list += (list.empty() ? u"" : settings_.Properties().markers.list) + DrawEntry();
        }
    }
    return list;
}

void RandomLaunch::DrawSettings() {
    settings_.Properties().markers.list = Chance(20) ? u"" : Chance(5) ? u";" : u"%|%";
    // An empty marker divides no list: with one for Access nothing else would be seen.
    settings_.Properties().accRegListString =
        settings_.Properties().markers.list.empty() && Chance(70) ? std::u16string() : DrawList();
    settings_.Properties().accPath = PickOrNothing(kFolders);
    settings_.SetAccVersion(static_cast<std::int32_t>(random_() % 6) - 2);
    settings_.Properties().dbRegListString = DrawList();
    settings_.Properties().dbPath = PickOrNothing(kFolders);
    settings_.Properties().dbFilename = PickOrNothing(kFileNames);
    settings_.Properties().systemDBRegListString = DrawList();
    settings_.Properties().systemDBPath = PickOrNothing(kFolders);
    settings_.Properties().systemDBFilename = PickOrNothing(kFileNames);
    settings_.Properties().profile = PickOrNothing({u"Büro", u" Profil ", u"a;b"});
    settings_.Properties().verifyProfile = Chance(50);
    settings_.Properties().macro = PickOrNothing({u"Autostart", u" Mein Makro ", u"\"x y\"", u" "});
    settings_.Properties().optionCompact = Chance(12);
    settings_.Properties().optionDecompile = Chance(12);
    settings_.Properties().optionExclusive = Chance(12);
    settings_.Properties().optionNoStartup = Chance(12);
    settings_.Properties().optionReadOnly = Chance(12);
    settings_.Properties().optionRepair = Chance(12);
    settings_.Properties().optionRuntime = Chance(12);
    settings_.Properties().systemDBUser = PickOrNothing({u"§Nutzer§", u"§N/u;t§", u" §N§ "});
    settings_.Properties().systemDBPwd = PickOrNothing({u"§Kennwort§", u"§K//w;;§", u"\"§K§\""});
    settings_.Properties().cmd = PickOrNothing({u"Auftrag 7", u"/user \"XXXX\"", u" a;b "});
}

void RandomLaunch::DrawRegistry() {
    for (const std::int32_t root :
         {kHKeyLocalMachine, kHKeyCurrentUser, kHKeyUsers, kHKeyClassesRoot}) {
        for (const std::u16string_view key : kKeys) {
            for (const std::u16string_view name : kValueNames) {
                if (Chance(60)) {
                    registry.SetTextZ(root, key, name, Ansi(PickOrNothing(kFolders)));
                } else if (Chance(50)) {
                    registry.SetText(root, key, name, Ansi(Pick(kFolders)));
                } else if (Chance(50)) {
                    registry.SetOther(root, key, name);
                }
            }
        }
    }
    for (const std::u16string_view version : {u"8.0", u"9.0", u"10.0", u"11.0"}) {
        const std::u16string office = u"SOFTWARE\\Microsoft\\Office\\" + std::u16string(version);
        for (const std::u16string_view part : {u"\\Common", u"\\Access"}) {
            if (Chance(50)) {
                registry.SetTextZ(kHKeyLocalMachine,
                                  office + std::u16string(part) + u"\\InstallRoot",
                                  Chance(50) ? u"Path" : u"OfficeBin", Ansi(Pick(kFolders)));
            }
        }
        if (Chance(50)) {
            registry.SetTextZ(kHKeyLocalMachine, office + u"\\Access\\Profiles",
                              Pick({u"BÜRO", u"a;b", u"Anderes"}), "x");
        }
    }
}

void RandomLaunch::DrawFiles() {
    // What a run without any file looks for is what can be found.
    cuTarvex tarvex = Configure(true);
    ErrorOf([&tarvex] { tarvex.GetCommandLine(); });
    const std::vector<std::u16string> lookedFor = files.log;
    for (const std::u16string& call : lookedFor) {
        if (Chance(75)) {
            files.AddFile(call.substr(std::u16string_view(u"exists ").size()));
        }
    }
    // An executable that no list led to ends the run early: what comes after it is found later.
    if (lookedFor.size() < 4 && Chance(80)) {
        files.AddFile(program.folder + u"\\" + program.exeName + u".mde");
    }
}

}  // namespace tarvex
