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
#include <tuple>
#include <type_traits>
#include <utility>
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

// A parameter, with what its marks in the header say.
struct Parameter
{
    explicit Parameter(std::string_view word);

    std::string_view name;
    bool isOut = false;
    bool isOptional = false;
    bool isSized = false; // a buffer
    bool isText = false;
    bool isLength = false; // of a buffer
    bool isFew = false;    // of a list of texts, each of which is work
};

// The arguments of one call. They live as long as this.
class Arguments
{
public:
    // `nullAt` is the number of the parameter that is null, from 1 on; 0 for none.
    Arguments(const std::vector<Parameter>& all, std::size_t nullAt, std::uint16_t hostPort, Random& source)
        : parameters(all), without(nullAt), port(hostPort), random(source)
    {
    }

    // First what buffers are as large as, then the buffers.
    template <class... P>
    std::tuple<P...> All(std::vector<std::size_t> (*sizesOf)(P...))
    {
        place = 0;
        std::tuple<P...> made{First<P>()...}; // in their order, between braces
        const std::vector<std::size_t> sizes = std::apply(sizesOf, made);
        place = 0;
        std::apply([&](P&... values) { (Complete(values, sizes[place]), ...); }, made);
        return made;
    }

    // Whether nothing was written where the header says that it is only read.
    bool InputsStand() const;
    // Whether something is null that the header wants.
    bool LacksSomething() const { return lacks; }

private:
    template <class T>
    T First()
    {
        const Parameter& made = parameters[place++];
        if constexpr (std::is_pointer_v<T>) {
            return made.isSized ? nullptr : Pointer<T>();
        } else if constexpr (std::is_class_v<T>) {
            T record;
            random.Fill(reinterpret_cast<std::uint8_t*>(&record), sizeof record);
            return record;
        } else {
            return static_cast<T>(Number(std::numeric_limits<T>::max()));
        }
    }

    template <class T>
    void Complete(T& value, std::size_t size)
    {
        const Parameter& made = parameters[place++];
        if constexpr (std::is_pointer_v<T>) {
            if constexpr (!std::is_function_v<std::remove_pointer_t<T>>)
                value = made.isSized ? Buffer<T>(size) : value;
            if (place == without) {
                lacks = !made.isOptional && (!made.isSized || size != 0);
                value = nullptr;
            }
        }
    }

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
        using Plain = std::conditional_t<std::is_void_v<Target>, char, Target>;
        if constexpr (std::is_function_v<Target>)
            return CallbackOf(T{});
        else if (parameters[place - 1].isText)
            return reinterpret_cast<T>(CopyOf(Text()));
        else
            return static_cast<T>(Record(sizeof(Plain)));
    }

    template <class T>
    T Buffer(std::size_t size)
    {
        using Target = std::remove_pointer_t<T>;
        if constexpr (std::is_same_v<T, const char**>)
            return Texts(size);
        else if constexpr (std::is_pointer_v<Target>) // a pointer to a buffer
            return static_cast<T>(Keep(Filled(size)));
        else
            return static_cast<T>(Filled(size));
    }

    std::uint64_t Number(std::uint64_t most);
    std::uint64_t Length(std::uint64_t most);
    // A record, or a number that begins as the length of a buffer.
    void* Record(std::size_t size);
    void* Filled(std::size_t size);
    void* Allocate(std::size_t size);
    // Notes what stands in a block that is only read.
    void* Note(void* block, std::size_t size);
    void* Keep(void* pointer);
    char* CopyOf(const std::string& text);
    const char** Texts(std::size_t size);
    std::string Text();

    std::string_view Name(std::size_t at) const { return at < parameters.size() ? parameters[at].name : ""; }

public:
    static inline thread_local bool throws = false;

private:
    const std::vector<Parameter>& parameters;
    std::size_t without;
    std::uint16_t port;
    Random& random;
    std::size_t place = 0; // of the parameter that is made, from 1 on
    bool lacks = false;
    std::vector<std::unique_ptr<std::uint8_t[]>> blocks;
    std::vector<std::pair<const void*, std::string>> inputs; // and what they held
};

} // namespace vxsign::test
