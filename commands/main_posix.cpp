#include "commands/Commands.h"
#include "commands/SystemConsole.h"
#include "platform/posix/PosixCleanup.h"
#include "platform/posix/PosixFile.h"
#include "platform/posix/PosixFileStore.h"
#include "platform/posix/PosixFolderListing.h"
#include "text/TextCodec1252.h"

int main(int argc, char** argv) {
    tarvex::PreparePosixProgram();
    std::vector<std::u16string> arguments;
    for (int i = 1; i < argc; ++i) {
        arguments.push_back(tarvex::PosixText(argv[i]));
    }
    tarvex::PosixFileStore store;
    // The launcher reads its settings in the code page of the Windows that it runs on. There is
    // none to ask for here, and nearly all its users have this one.
    const tarvex::TextCodec1252 codec;
    tarvex::SystemConsole console;
    const tarvex::PosixFolderListing folders;
    return tarvex::RunCommand(arguments, {store, codec, console, folders});
}
