// Prints docs/reference.md: the interface of the control, from the table that answers by name.

#include "krv/control/automation.h"
#include "krv/persistence/setting_keys.h"

#include <iostream>
#include <string>
#include <vector>

namespace {

using namespace krv::automation;

std::string parameters_of(const std::vector<Parameter>& parameters) {
    std::string text;
    for (const Parameter& parameter : parameters) {
        if (!text.empty()) {
            text += ", ";
        }
        text += parameter.optional ? "optional " : "";
        text += parameter.by_ref ? "by ref " : "";
        text += '`' + std::string(parameter.name) + "` " + std::string(name_of(parameter.type));
    }
    return text;
}

std::string access_of(const Member& member) {
    std::string text = member.get ? "get" : "";
    if (member.put) {
        text += member.value_by_ref ? ", put (value by ref)" : ", put";
    }
    return text + (member.putref ? ", put by reference" : "");
}

void print_properties(std::ostream& out) {
    out << "## Properties\n\n"
           "| property | type | index | access | meaning | notifies |\n"
           "|---|---|---|---|---|---|\n";
    for (const Member& member : members()) {
        if (member.kind == Kind::property) {
            out << "| `" << member.name << "` | " << name_of(member.type) << " | "
                << parameters_of(member.parameters) << " | " << access_of(member) << " | "
                << member.meaning << " | "
                << (member.notification.empty() ? "" : '"' + std::string(member.notification) + '"')
                << " |\n";
        }
    }
}

void print_methods(std::ostream& out) {
    out << "\n## Methods\n\n"
           "| method | parameters | result | does |\n"
           "|---|---|---|---|\n";
    for (const Member& member : members()) {
        if (member.kind == Kind::method) {
            out << "| `" << member.name << "` | " << parameters_of(member.parameters) << " | "
                << name_of(member.type) << " | " << member.meaning << " |\n";
        }
    }
}

void print_events(std::ostream& out) {
    out << "\n## Events\n\n"
           "| number | event | arguments | raised |\n"
           "|---|---|---|---|\n";
    for (const Event& event : events()) {
        out << "| " << event.id << " | `" << event.name << "` | " << parameters_of(event.parameters)
            << " | " << event.meaning << " |\n";
    }
}

void print_enumerations(std::ostream& out) {
    out << "\n## Enumerations\n\n"
           "| enumeration | constant | value |\n"
           "|---|---|---|\n";
    for (const Enumeration& enumeration : enumerations()) {
        for (const EnumerationValue& value : enumeration.values) {
            out << "| `" << enumeration.name << "` | `" << value.name << "` | " << value.value
                << " |\n";
        }
    }
}

std::string type_of(const krv::platform::Value& value) {
    using krv::platform::ValueKind;
    switch (value.kind()) {
    case ValueKind::boolean:
        return "Boolean";
    case ValueKind::integer:
        return "Integer";
    case ValueKind::text:
        return "String";
    default:
        return "Long";
    }
}

std::string text_of(const krv::platform::Value& value) {
    const krv::platform::ValueView view = value.view();
    switch (view.kind()) {
    case krv::platform::ValueKind::boolean:
        return view.as_boolean() ? "True" : "False";
    case krv::platform::ValueKind::text:
        return '"' + std::string(view.as_text()) + '"';
    default:
        return std::to_string(view.as_whole());
    }
}

void print_settings(std::ostream& out) {
    out << "\n## Settings in a property bag\n\n"
           "In the order in which they are read and written. A setting that equals its default "
           "when "
           "written is not\nstored; the keys of a column end in its number (`ColWidth0`), and all "
           "of one column come before the next.\n\n"
           "| key | type | default | meaning |\n"
           "|---|---|---|---|\n";
    for (const krv::persistence::SettingKey& key : krv::persistence::setting_keys()) {
        const bool column = key.scope == krv::persistence::KeyScope::column;
        const std::string read = text_of(key.default_read);
        const std::string written = text_of(key.default_written);
        out << "| `" << key.name << (column ? "`n" : "`") << " | " << type_of(key.default_read)
            << " | " << read << (read == written ? "" : "; " + written + " when written") << " | "
            << key.meaning << " |\n";
    }
}

} // namespace

int main() {
    std::cout
        << "# Interface of KarvoList\n\n"
           "Made by `krvlist-reference` from the table that also answers by name; a test keeps "
           "this "
           "page true.\nIn C++ a property `Cols` is read by `Cols()` and written by `SetCols(3)`; "
           "what a member does, and the\nerrors it raises, stand in "
           "`include/krv/control/karvo_list.h`, the events in `events.h` beside it.\n\n"
           "Columns and rows count from 0. Integer has 16 bits, Long 32, Single is a 32-bit float; "
           "True is -1 as a\nnumber. Places and sizes are twips, 1,440 to the inch. \"Notifies\" "
           "gives the name under which a put tells\nthe host that the property changed.\n\n";
    print_properties(std::cout);
    print_methods(std::cout);
    print_events(std::cout);
    print_enumerations(std::cout);
    print_settings(std::cout);
    return std::cout.good() ? 0 : 1;
}
