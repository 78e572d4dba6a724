#pragma once

#include <deque>
#include <string>
#include <vector>

#include "commands/Commands.h"
#include "commands/Console.h"
#include "tests/configurator/ConfiguratorWorld.h"
#include "tests/support/FakeFolderListing.h"
#include "text/Text.h"

namespace tarvex {

class FakeConsole : public Console {
public:
    bool Out(std::u16string_view text) override {
        out += text;
        return !outputIsFull;
    }
    bool Err(std::u16string_view text) override {
        err += text;
        return true;
    }
    bool IsInteractive() const override { return interactive; }
    std::optional<std::u16string> ReadSecretLine(std::u16string_view prompt) override {
        prompts.emplace_back(prompt);
        if (input.empty()) {
            return std::nullopt;
        }
        std::u16string line = input.front();
        input.pop_front();
        return line;
    }

    std::string ReadInput() override { return inputBytes; }

    std::u16string out;
    std::u16string err;
    std::string inputBytes;
    bool interactive = false;
    bool outputIsFull = false;
    std::deque<std::u16string> input;
    std::vector<std::u16string> prompts;
};

/// The command line of the configurator with files in memory.
struct CommandsWorld : ConfiguratorWorld {
    int Run(const std::vector<std::u16string>& arguments) {
        console.out.clear();
        console.err.clear();
        return RunCommand(arguments, {store, codec, console, folders});
    }

    /// Brands K.exe from the text of a settings file.
    int Brand(std::u16string_view settings) {
        files.AddFile(u"K.ini", text::ToUtf8(settings));
        return Run({u"brand", u"T.exe", u"K.exe", u"--settings", u"K.ini", u"--force"});
    }

    FakeConsole console;
    FakeFolderListing folders;
};

}  // namespace tarvex
