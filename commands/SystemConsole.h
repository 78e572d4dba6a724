#pragma once

#include "commands/Console.h"

namespace tarvex {

/// The program's own console. What is redirected to or from a file or pipe is UTF-8.
class SystemConsole : public Console {
public:
    bool Out(std::u16string_view text) override;
    bool Err(std::u16string_view text) override;
    bool IsInteractive() const override;
    std::optional<std::u16string> ReadSecretLine(std::u16string_view prompt) override;
    std::string ReadInput() override;
};

}  // namespace tarvex
