// Reads one Jet database for one connection of the library, behind limits that a damaged or hostile
// file cannot get it across. Started by the library alone, with its end of the conversation as the
// standard input and the open file as descriptor 3.

#include "channel.h"
#include "jet_file.h"
#include "preparation.h"
#include "sandbox.h"
#include "service.h"

#include "providers/jet/protocol.h"

#include <cstdio>
#include <exception>

#include <unistd.h>

#ifdef __SANITIZE_ADDRESS__
/// The search for leaks starts a thread, which the reader must not.
extern "C" const char* __asan_default_options() {
    return "detect_leaks=0";
}
#endif

namespace {

using namespace krv::jet_reader;
namespace protocol = krv::providers::jet::protocol;

void serve() {
    close_what_is_not_ours();
    prepare_libraries();
    const MappedFile file(protocol::file_descriptor);
    close(protocol::file_descriptor);
    enter_sandbox(file.bytes().size());
    Channel channel(protocol::channel_descriptor);
    Service service(channel, file.bytes());
    service.run();
}

} // namespace

int main(int argc, char** /*argv*/) {
    if (argc != 1 || isatty(STDIN_FILENO) != 0) {
        std::fputs("krvlist-jet-reader is started by the library; it does nothing by hand.\n",
                   stderr);
        return 2;
    }
    try {
        serve();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        _exit(1);
    }
    _exit(0); // what the libraries do at the end is not among what this process may do
}
