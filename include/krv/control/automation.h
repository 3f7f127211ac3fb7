#pragma once

#include "krv/control/events.h"
#include "krv/platform/formatter.h"
#include "krv/platform/value.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace krv {

class KarvoList;

/// The face of `KarvoList` by name: for scripting, for other languages, for tools.
namespace automation {

/// Types of the interface; `none` is the result of a method that has none.
enum class Type : std::uint8_t {
    none,
    Boolean,
    Integer,
    Long,
    Single,
    String,
    OLE_COLOR,
    Object,
    Recordset,
    krvListRecords
};

/// As the interface spells it: "Boolean", "OLE_COLOR"; empty for `none`.
std::string_view name_of(Type type);

struct Parameter {
    std::string_view name;
    Type type = Type::none;
    bool by_ref = false;
    bool optional = false;
};

enum class Kind : std::uint8_t { property, method };

/// What is asked of a member.
enum class Access : std::uint8_t { get, put, putref, call };

/// One property or method. The parameters of a property are its indexes.
struct Member {
    std::string_view name;
    Kind kind = Kind::property;
    Type type = Type::none; ///< of the property, or of the method's result
    std::vector<Parameter> parameters;
    bool get = false;
    bool put = false;
    bool putref = false;
    bool value_by_ref = false;     ///< a put takes the caller's variable by reference
    std::string_view notification; ///< what a put tells the host; empty for nothing
    std::string_view meaning;      ///< one line for a reader

    /// How the member is carried out, with arguments of exactly its types; null where it is not.
    using Read = platform::Value (*)(const KarvoList&, std::span<const platform::Value>);
    using Write = void (*)(KarvoList&, std::span<const platform::Value>, const platform::Value&);
    using Call = platform::Value (*)(KarvoList&, std::span<platform::Value>);
    Read read = nullptr;
    Write write = nullptr;
    Call run = nullptr;
};

/// One event: its dispatch number, 1 to 18, and what it brings.
struct Event {
    std::int16_t id = 0;
    std::string_view name;
    std::vector<Parameter> parameters;
    std::string_view meaning;
};

struct EnumerationValue {
    std::string_view name;
    std::int32_t value = 0;
};

struct Enumeration {
    std::string_view name;
    std::vector<EnumerationValue> values;
};

/// 60 properties, then 15 methods, each in interface order.
std::span<const Member> members();
/// The 18 events, by number.
std::span<const Event> events();
std::span<const Enumeration> enumerations();

/// The member that an access may be carried out on.
/// \param arguments  how many are given; the value of a put is none of them
/// \throws RuntimeError 438 for an unknown name, a get of a method, a call of a property, a putref
///         of a property that is put by value; 383 for a put of a property that is read-only or put
///         by reference; 450 for a wrong number of arguments
const Member& require(std::string_view name, Access access, std::size_t arguments);

// Late-bound access. Arguments and values are converted as `convert` does, all of them before the
// control is touched. What the member itself lets out comes out unchanged.

/// \throws RuntimeError as `require` and `convert` do
platform::Value
get(const KarvoList& list, std::string_view name, std::span<const platform::Value> arguments = {});

/// \throws RuntimeError as `require` and `convert` do
void put(KarvoList& list,
         std::string_view name,
         std::span<const platform::Value> arguments,
         const platform::Value& value);

/// Puts by reference.
/// \throws RuntimeError as `require` and `convert` do
void putref(KarvoList& list,
            std::string_view name,
            std::span<const platform::Value> arguments,
            const platform::Value& value);

/// Calls a method; arguments by reference are left as they stand afterwards.
/// \return  Empty for a method without a result
/// \throws RuntimeError as `require` and `convert` do
platform::Value
call(KarvoList& list, std::string_view name, std::span<platform::Value> arguments = {});

/// A value as a type of the interface: Boolean, Integer, Long, Single and String in their own kinds,
/// OLE_COLOR as a 64-bit number from 0, Object and Recordset as a shared object or none.
///
/// Fractions round half to even; texts are read by the regional settings; True is -1 as a number; a
/// Boolean takes numbers and "True" and "False" in any letter case; a colour comes with or without
/// sign.
/// \throws RuntimeError 13 for a value of the wrong kind (Null, but for objects, where it is none),
///         6 for one out of the type's range
platform::Value
convert(const platform::Value& value, Type type, const platform::Formatter& formatter);

/// Gets events by number and name.
class EventSink {
public:
    /// \param arguments  in the event's order, in the kinds that `convert` gives; changes of those by
    ///                   reference reach the control, converted, when this returns
    virtual void raise(const Event& event, std::span<platform::Value> arguments) = 0;

protected:
    ~EventSink() = default;
};

/// A listener that hands every event on to a sink.
class EventForwarder final : public KarvoListEvents {
public:
    /// Both outlive the forwarder.
    EventForwarder(EventSink& sink, const platform::Formatter& formatter)
        : sink_(sink)
        , formatter_(formatter) {}

    void KeyDown(std::int16_t& KeyCode, std::int16_t& Shift, std::int32_t Col) override;
    void KeyPress(std::int16_t& KeyAscii) override;
    void ListClick(std::int16_t& Button,
                   std::int16_t& Shift,
                   float& x,
                   float& y,
                   std::int32_t Row,
                   std::int32_t Col) override;
    void LineEditStart(bool Adding) override;
    void InputLineClick(
        std::int16_t& Button, std::int16_t& Shift, float& x, float& y, std::int32_t Col) override;
    void InputLineDblClick(std::int32_t Col, std::string& Value) override;
    void InputFieldClick(
        std::int16_t& Button, std::int16_t& Shift, float& x, float& y, std::int32_t Col) override;
    void InputFieldChange(std::int32_t Col, std::string& Value) override;
    void AfterRowDelete(std::int32_t DeletedRow) override;
    void AfterRowUpdated(std::int32_t UpdatedRow) override;
    void AddClick(bool& Cancel) override;
    void InsertClick(bool& Cancel) override;
    void DeleteClick(bool& Cancel) override;
    void BeforeFieldUpdate(std::int32_t ColInEdit, std::string& Value, bool& Cancel) override;
    void BeforeRowUpdate(std::int32_t RowInEdit,
                         std::int32_t ColInEdit,
                         bool& Cancel,
                         bool& ExternalHandling) override;
    void CopyClick(bool& Cancel) override;
    void OKClick(bool& Cancel) override;
    void RowSelect(std::int32_t& Row) override;

private:
    template <class... Arguments>
    void forward(std::int16_t id, Arguments&... arguments);

    EventSink& sink_;
    const platform::Formatter& formatter_;
};

} // namespace automation
} // namespace krv
