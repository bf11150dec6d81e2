// Random arguments for any export: texts, paths of its own folder, numbers, and buffers of exactly the documented size.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace vxsign::test {

// Thrown by whatever of the caller's is called back, now and then: nothing of it may leave an export.
struct FromTheCaller
{
};

class Random
{
public:
    explicit Random(std::uint64_t seed) : engine(seed) {}
    std::uint64_t Below(std::uint64_t end) { return end == 0 ? 0 : engine() % end; }
    bool Chance(unsigned percent) { return Below(100) < percent; }
    // Mostly small, sometimes at an edge, sometimes anything.
    std::uint64_t Number();
    void Fill(std::uint8_t* to, std::size_t size);

private:
    std::mt19937_64 engine;
};

// The arguments of one call, made in the order of its parameters. They live as long as this.
class Arguments
{
public:
    // `nullAt` is the number of the parameter that is null, from 1 on; 0 for none.
    Arguments(std::string_view name, const std::vector<std::string_view>& names, std::size_t nullAt,
              std::uint16_t hostPort, Random& source)
        : exportName(name), parameters(names), without(nullAt), port(hostPort), random(source)
    {
    }

    template <class T>
    T Next()
    {
        ++place;
        if constexpr (std::is_pointer_v<T>) {
            T made = Pointer<T>();
            return place == without ? nullptr : made;
        } else if constexpr (std::is_class_v<T>) {
            T made;
            random.Fill(reinterpret_cast<std::uint8_t*>(&made), sizeof made);
            return made;
        } else {
            return static_cast<T>(Number(std::numeric_limits<T>::max()));
        }
    }

    // What the widest length can be that the next parameter takes; to be said ahead of each call.
    std::vector<std::uint64_t> limits;

private:
    template <class R, class... A>
    static R Callback(A...)
    {
        if (throws)
            throw FromTheCaller();
        return R();
    }
    template <class R, class... A>
    static R (*CallbackOf(R (*)(A...)))(A...)
    {
        return Callback<R, A...>;
    }

    template <class T>
    T Pointer()
    {
        using Target = std::remove_pointer_t<T>;
        using Plain = std::remove_const_t<Target>;
        if constexpr (std::is_function_v<Target>)
            return CallbackOf(T{});
        else if constexpr (std::is_same_v<T, const char**>)
            return Texts();
        else if constexpr (std::is_pointer_v<Target>) // a pointer to a buffer
            return reinterpret_cast<T>(Keep(Buffer(1, false)));
        else if constexpr (std::is_void_v<Plain>)
            return Buffer(0, std::is_const_v<Target>);
        else if constexpr (std::is_same_v<Target, const char>)
            return CopyOf(Text());
        else if constexpr (std::is_same_v<Plain, char> || sizeof(Plain) == 1)
            return reinterpret_cast<T>(Buffer(1, std::is_const_v<Target> || std::is_same_v<Plain, char>));
        else
            return static_cast<T>(Record(sizeof(Plain), std::is_const_v<Target>));
    }

    std::uint64_t Number(std::uint64_t most);
    // A record, or a number behind a buffer, which begins as the size of that.
    void* Record(std::size_t size, bool isInput);
    // As large as the table or the length behind it says, else `size`; a text where it says nothing of an input.
    void* Buffer(std::size_t size, bool isInput);
    std::size_t LinkedSize(std::size_t each);
    void* Allocate(std::size_t size);
    void** Keep(void* pointer);
    char* CopyOf(const std::string& text);
    const char** Texts();
    std::string Text();

    std::string_view Name(std::size_t at) const { return at < parameters.size() ? parameters[at] : ""; }

public:
    static inline thread_local bool throws = false;

private:
    std::string_view exportName;
    const std::vector<std::string_view>& parameters;
    std::size_t without;
    std::uint16_t port;
    Random& random;
    std::size_t place = 0; // of the parameter that is made, from 1 on
    bool isLengthNext = false;
    std::uint64_t nextLength = 0;
    std::vector<std::unique_ptr<std::uint8_t[]>> blocks;
};

} // namespace vxsign::test
