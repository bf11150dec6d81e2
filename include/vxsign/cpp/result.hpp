// What a call gives: a value, or the error in its place.
#ifndef VXSIGN_CPP_RESULT_HPP
#define VXSIGN_CPP_RESULT_HPP

#include <vxsign/advice.hpp>
#include <vxsign/result.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

namespace vxsign {

struct Error
{
    std::uint32_t code = VX_OK; // result word
    std::string text;           // what went wrong
    std::string advice;         // what helps; often empty
};

namespace detail {

inline Error ErrorOf(std::uint32_t code)
{
    return {code, vxErrorDesc(code), std::string(AdviceFor(code))};
}

// What the parts of a call throw; it does not leave the call.
struct Failure
{
    explicit Failure(std::uint32_t code) : error(ErrorOf(code)) {}
    Failure(std::uint32_t code, std::string text) : error{code, std::move(text), std::string(AdviceFor(code))} {}

    Error error;
};

// For what cannot be asked for: nothing was sent.
[[noreturn]] inline void Refuse(std::string text)
{
    Failure failure(VX_ARGUMENTS, std::move(text));
    failure.error.advice.clear(); // the text says it all
    throw failure;
}

// Throws for every result but 0.
inline void Check(std::uint32_t result)
{
    if (result != VX_OK)
        throw Failure(result);
}

// False when the sign refuses. Throws when the line fails.
inline bool IsDone(std::uint32_t result)
{
    if (result == VX_COMMUNICATION || result == VX_ABORTED)
        throw Failure(result);
    return result == VX_OK;
}

} // namespace detail

// Test it as a truth value, then take what is there. Whoever takes what is not there ends the program.
template <class T>
class [[nodiscard]] Result
{
public:
    Result(T found) : value(std::move(found)) {}
    Result(vxsign::Error reason) : error(std::move(reason)) {}

    explicit operator bool() const { return value.has_value(); }

    T& Value() { return value ? *value : Missing(error); }
    const T& Value() const { return const_cast<Result*>(this)->Value(); }
    T ValueOr(T other) const { return value ? *value : std::move(other); }
    T& operator*() { return Value(); }
    const T& operator*() const { return Value(); }
    T* operator->() { return &Value(); }
    const T* operator->() const { return &Value(); }

    // Of a success it has the code 0.
    const vxsign::Error& Error() const { return error; }

private:
    [[noreturn]] static T& Missing(const vxsign::Error& error)
    {
        std::fprintf(stderr, "vxsign: the value of a failure was taken: %s\n", error.text.c_str());
        std::abort();
    }

    std::optional<T> value;
    vxsign::Error error;
};

template <>
class [[nodiscard]] Result<void>
{
public:
    Result() = default;
    Result(vxsign::Error reason) : error(std::move(reason)) {}

    explicit operator bool() const { return error.code == VX_OK; }
    const vxsign::Error& Error() const { return error; }

private:
    vxsign::Error error;
};

} // namespace vxsign

#endif
