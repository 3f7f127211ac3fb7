// A reader that somebody has taken over: behind the same limits as the real one it does, at the first
// request, what the end of its own name says. Had it been able to, it answers as if nothing had been.

#include "channel.h"
#include "jet_file.h"
#include "preparation.h"
#include "sandbox.h"

#include "providers/jet/protocol.h"

#include <csignal>
#include <cstdint>
#include <cstring>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include <fcntl.h>
#include <netinet/in.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

#ifdef __SANITIZE_ADDRESS__
extern "C" const char* __asan_default_options() {
    return "detect_leaks=0";
}
#endif

namespace {

using namespace krv::jet_reader;
namespace protocol = krv::providers::jet::protocol;
using krv::providers::jet::FrameWriter;
using protocol::Answer;

constexpr std::size_t megabyte = 1024 * 1024;

void require(bool succeeded) {
    if (!succeeded) {
        throw std::runtime_error("refused");
    }
}

void take_memory() {
    for (int i = 0; i < 4096; ++i) {
        auto* const memory = static_cast<volatile char*>(::operator new(megabyte));
        *memory = 1;
    }
}

void write_gigabyte(int descriptor) {
    const std::vector<char> content(megabyte, 'x');
    for (int i = 0; i < 1024; ++i) {
        std::size_t done = 0;
        while (done < content.size()) {
            const ssize_t count = write(descriptor, content.data() + done, content.size() - done);
            require(count > 0);
            done += static_cast<std::size_t>(count);
        }
    }
}

void send_raw(std::uint32_t size, std::uint32_t request, unsigned char kind) {
    char head[protocol::head_size];
    std::memcpy(head, &size, sizeof size);
    std::memcpy(head + 4, &request, sizeof request);
    head[8] = static_cast<char>(kind);
    require(write(protocol::channel_descriptor, head, sizeof head) == sizeof head);
}

void connect_out() {
    const int out = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(9);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    connect(out, reinterpret_cast<sockaddr*>(&address), sizeof address);
}

const volatile bool goes_on = true;

void loop() {
    while (goes_on) {
    }
}

void pulse_forever() {
    for (;;) {
        send_raw(0, 1, static_cast<unsigned char>(Answer::progress));
        usleep(10'000); // not allowed either, so this one ends here
    }
}

void busy_pulses() {
    for (;;) {
        send_raw(0, 1, static_cast<unsigned char>(Answer::progress));
        for (int i = 0; i < 10'000'000 && goes_on; ++i) {
        }
    }
}

using Act = std::function<void()>;

const std::map<std::string, Act>& acts() {
    static const std::map<std::string, Act> all = {
        {"opens-a-file", [] { require(open("/etc/hostname", O_RDONLY) >= 0); }},
        {"opens-by-its-folder", [] { require(openat(AT_FDCWD, ".", O_RDONLY) >= 0); }},
        {"removes-a-file", [] { unlink("/tmp/krv-no-such-file"); }},
        {"connects", connect_out},
        {"starts-a-process", [] { require(fork() >= 0); }},
        {"runs-a-program", [] { execl("/bin/true", "true", nullptr); }},
        {"kills-its-parent", [] { kill(getppid(), 0); }},
        {"makes-code",
         [] { mmap(nullptr, 4096, PROT_READ | PROT_EXEC, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0); }},
        {"takes-4-GiB", take_memory},
        {"answers-1-GiB", [] { write_gigabyte(protocol::channel_descriptor); }},
        {"complains-1-GiB", [] { write_gigabyte(protocol::complaints_descriptor); }},
        {"loops", loop},
        {"pulses-and-sleeps", pulse_forever},
        {"pulses-for-ever", busy_pulses},
        {"dies", [] { raise(SIGKILL); }},
        {"ends", [] { _exit(0); }},
        {"answers-too-long",
         [] {
             send_raw(protocol::largest_payload + 1, 1, static_cast<unsigned char>(Answer::opened));
         }},
        {"answers-half",
         [] {
             send_raw(100, 1, static_cast<unsigned char>(Answer::opened));
             _exit(0);
         }},
        {"promises-much",
         [] {
             send_raw(protocol::largest_payload, 1, static_cast<unsigned char>(Answer::opened));
             loop();
         }},
        {"answers-unasked", [] { send_raw(0, 7, static_cast<unsigned char>(Answer::opened)); }},
        {"answers-nothing", [] { send_raw(0, 1, static_cast<unsigned char>(Answer::opened)); }},
        {"answers-otherwise", [] { send_raw(0, 1, static_cast<unsigned char>(Answer::rows)); }},
        {"answers-no-kind", [] { send_raw(0, 1, 200); }},
        {"errs-badly", [] { send_raw(0, 1, static_cast<unsigned char>(Answer::error)); }},
    };
    return all;
}

/// Payloads of an answer with rows, for a table of one column.
const std::map<std::string, std::function<void(FrameWriter&)>>& row_payloads() {
    const auto begin = [](FrameWriter& rows, std::uint32_t count) {
        rows.put(std::uint8_t{1});
        rows.put(count);
    };
    static const std::map<std::string, std::function<void(FrameWriter&)>> all = {
        {"rows-fine",
         [begin](FrameWriter& rows) {
             begin(rows, 1);
             rows.put_value(krv::platform::ValueView::long_integer(1));
         }},
        {"rows-too-few", [begin](FrameWriter& rows) { begin(rows, 4'000'000'000U); }},
        {"rows-and-more",
         [begin](FrameWriter& rows) {
             begin(rows, 1);
             rows.put_value(krv::platform::ValueView::null());
             rows.put(std::uint8_t{0});
         }},
        {"rows-of-no-kind",
         [begin](FrameWriter& rows) {
             begin(rows, 1);
             rows.put(std::uint8_t{99});
         }},
        {"rows-of-objects",
         [begin](FrameWriter& rows) {
             begin(rows, 1);
             rows.put_value(krv::platform::ValueView::null());
             rows.put_at(5, static_cast<std::uint8_t>(krv::platform::ValueKind::object));
         }},
        {"rows-with-long-text",
         [begin](FrameWriter& rows) {
             begin(rows, 1);
             rows.put_value(krv::platform::ValueView::text("abc"));
             rows.put_at(6, std::uint32_t{0xFFFFFFFFU});
         }},
        {"rows-with-bad-text",
         [begin](FrameWriter& rows) {
             begin(rows, 1);
             rows.put_value(krv::platform::ValueView::text("a\xFF\xC0z"));
         }},
        {"rows-with-bad-scale",
         [begin](FrameWriter& rows) {
             begin(rows, 1);
             rows.put_value(krv::platform::ValueView::decimal({1, 0, 200, false}));
         }},
        {"rows-none-but-more",
         [](FrameWriter& rows) {
             rows.put(std::uint8_t{0});
             rows.put(std::uint32_t{0});
         }},
    };
    return all;
}

void answer_opened(Channel& channel) {
    FrameWriter payload;
    payload.put(protocol::version);
    payload.put(std::uint32_t{1});
    payload.put_text("t");
    channel.answer(Answer::opened, payload.bytes());
}

void answer_columns(Channel& channel) {
    FrameWriter payload;
    payload.put(std::uint32_t{1});
    payload.put(std::uint32_t{1});
    payload.put(std::int16_t{3});
    payload.put(std::int32_t{4});
    payload.put_text("n");
    channel.answer(Answer::columns, payload.bytes());
}

void serve(const std::string& name) {
    close_what_is_not_ours();
    prepare_libraries();
    const MappedFile file(protocol::file_descriptor);
    close(protocol::file_descriptor);
    enter_sandbox(file.bytes().size());
    Channel channel(protocol::channel_descriptor);
    while (const auto request = channel.receive()) {
        if (const auto act = acts().find(name); act != acts().end()) {
            act->second();
        }
        if (request->kind == protocol::Request::open) {
            answer_opened(channel);
        } else if (request->kind == protocol::Request::open_table) {
            answer_columns(channel);
        } else {
            FrameWriter rows;
            row_payloads().at(name)(rows);
            channel.answer(Answer::rows, rows.bytes());
        }
    }
}

} // namespace

int main(int, char** argv) {
    const std::string path = argv[0];
    try {
        serve(path.substr(path.rfind('/') + 1));
    } catch (const std::exception&) {
        _exit(1);
    }
    _exit(0);
}
