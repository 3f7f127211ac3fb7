#pragma once

#include "control/automation/native.h"

#include "krv/control/automation.h"
#include "krv/control/karvo_list.h"

#include <initializer_list>
#include <tuple>

namespace krv::automation {

/// A parameter's name, and how the interface passes it where the typed face does not say.
struct NamedParameter {
    std::string_view name;
    bool by_ref = false;
    bool optional = false;
};

/// Makes the rows of the member table: types and invokers come from the typed face, so that neither
/// can disagree with it.
namespace binding {

template <class Method>
struct Signature;

template <class Result, class... Parameters>
struct Signature<Result (KarvoList::*)(Parameters...)> {
    using Returned = Result;
    using Given = std::tuple<Parameters...>;
    static constexpr std::size_t count = sizeof...(Parameters);
};

template <class Result, class... Parameters>
struct Signature<Result (KarvoList::*)(Parameters...) const>
    : Signature<Result (KarvoList::*)(Parameters...)> {};

template <class Method, std::size_t I>
using Parameter = std::tuple_element_t<I, typename Signature<Method>::Given>;

template <class Method, std::size_t... I>
std::vector<automation::Parameter> parameters(std::initializer_list<NamedParameter> names,
                                              std::index_sequence<I...>) {
    return {automation::Parameter{names.begin()[I].name,
                                  type_of<Parameter<Method, I>>(),
                                  names.begin()[I].by_ref || is_changeable<Parameter<Method, I>>,
                                  names.begin()[I].optional}...};
}

template <auto Get>
platform::Value read(const KarvoList& list, std::span<const platform::Value> arguments) {
    using Method = decltype(Get);
    return [&]<std::size_t... I>(std::index_sequence<I...>) {
        return value_of((list.*Get)(native_of<Parameter<Method, I>>(arguments[I])...));
    }
    (std::make_index_sequence<Signature<Method>::count>());
}

template <auto Put>
void write(KarvoList& list,
           std::span<const platform::Value> arguments,
           const platform::Value& value) {
    using Method = decltype(Put);
    constexpr std::size_t indexes = Signature<Method>::count - 1;
    [&]<std::size_t... I>(std::index_sequence<I...>) {
        (list.*Put)(native_of<Parameter<Method, I>>(arguments[I])...,
                    native_of<Parameter<Method, indexes>>(value));
    }
    (std::make_index_sequence<indexes>());
}

template <auto Run>
platform::Value call(KarvoList& list, std::span<platform::Value> arguments) {
    using Method = decltype(Run);
    using Returned = typename Signature<Method>::Returned;
    return [&]<std::size_t... I>(std::index_sequence<I...>) {
        std::tuple<std::remove_cvref_t<Parameter<Method, I>>...> natives(
            native_of<std::remove_cvref_t<Parameter<Method, I>>>(arguments[I])...);
        const auto give_back = [&] {
            (...,
             (is_changeable<Parameter<Method, I>>
                  ? static_cast<void>(arguments[I] = value_of(std::get<I>(natives)))
                  : static_cast<void>(0)));
        };
        if constexpr (std::is_void_v<Returned>) {
            (list.*Run)(std::get<I>(natives)...);
            give_back();
            return platform::Value();
        } else {
            platform::Value result = value_of((list.*Run)(std::get<I>(natives)...));
            give_back();
            return result;
        }
    }
    (std::make_index_sequence<Signature<Method>::count>());
}

} // namespace binding

/// A property that is only read.
template <auto Get>
Member read_only(std::string_view name,
                 std::initializer_list<NamedParameter> indexes,
                 std::string_view meaning) {
    using Method = decltype(Get);
    using Shape = binding::Signature<Method>;
    Member member;
    member.name = name;
    member.type = type_of<typename Shape::Returned>();
    member.parameters =
        binding::parameters<Method>(indexes, std::make_index_sequence<Shape::count>());
    member.get = true;
    member.meaning = meaning;
    member.read = binding::read<Get>;
    return member;
}

/// A property that is read and put; the put notifies under the property's name.
template <auto Get, auto Put>
Member property(std::string_view name,
                std::initializer_list<NamedParameter> indexes,
                std::string_view meaning) {
    using Value = std::tuple_element_t<binding::Signature<decltype(Put)>::count - 1,
                                       typename binding::Signature<decltype(Put)>::Given>;
    static_assert(type_of<Value>() ==
                  type_of<typename binding::Signature<decltype(Get)>::Returned>());
    Member member = read_only<Get>(name, indexes, meaning);
    member.put = true;
    member.notification = name;
    member.write = binding::write<Put>;
    return member;
}

template <auto Get, auto Put>
Member property(std::string_view name, std::string_view meaning) {
    return property<Get, Put>(name, {}, meaning);
}

/// A property that is put by reference.
template <auto Get, auto Put>
Member referring(std::string_view name, std::string_view meaning) {
    Member member = property<Get, Put>(name, {}, meaning);
    member.put = false;
    member.putref = true;
    return member;
}

/// A property whose put takes the caller's variable by reference; the control does not change it.
inline Member takes_variable(Member member) {
    member.value_by_ref = true;
    return member;
}

inline Member notifies(std::string_view notification, Member member) {
    member.notification = notification;
    return member;
}

template <auto Run>
Member method(std::string_view name,
              std::initializer_list<NamedParameter> parameters,
              std::string_view meaning) {
    using Method = decltype(Run);
    using Shape = binding::Signature<Method>;
    Member member;
    member.name = name;
    member.kind = Kind::method;
    member.type = type_of<typename Shape::Returned>();
    member.parameters =
        binding::parameters<Method>(parameters, std::make_index_sequence<Shape::count>());
    member.meaning = meaning;
    member.run = binding::call<Run>;
    return member;
}

} // namespace krv::automation
