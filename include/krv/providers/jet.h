#pragma once

#include "krv/standard/provider.h"

#include <chrono>
#include <memory>
#include <string>

namespace krv::providers {

/// How the Jet provider works with its reader, the program `krvlist-jet-reader`.
struct JetOptions {
    /// Path of the reader; empty: it is looked for beside the running program, beside the library,
    /// in the folder that it was installed to. The search path of programs is not asked.
    std::string reader;

    /// How long the reader may give no sign of life, at least one while it works.
    std::chrono::milliseconds silence{1500};

    /// How long one answer may take in all; the keyword `General Timeout` (seconds, 0 for no end)
    /// goes before it.
    std::chrono::milliseconds answer{60'000};
};

/// Reads Jet databases (.mdb, .accdb), never writes them.
///
/// Each connection has a process of its own that reads the file for it, without access to other
/// files, to the network or to other programs; a damaged file can do no more than end that process.
/// A file that is not whole gives an error, not a part of its rows.
///
/// Tables are read straight; a SELECT runs in the reader over the tables that it names. Everything
/// that writes, and transactions, fail with 3251.
///
/// Keywords: `Data Source`, the path of the file; `Jet OLEDB:Database Password`; `General Timeout`.
/// Other keywords are not looked at.
std::shared_ptr<standard::Provider> make_jet_provider(JetOptions options = {});

} // namespace krv::providers
