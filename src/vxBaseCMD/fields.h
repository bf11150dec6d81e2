// How a flat command says what it sends and what it takes out of the reply, in terms of the protocol's tables.
//
// A request field that needs a pointer and gets a null, or a request that does not fit, makes the command VX_ARGUMENTS
// with nothing sent; so does a null for a reply field that is not Optional.
#pragma once

#include "vxBaseCMD/packet.h"

#include <algorithm>
#include <array>
#include <concepts>
#include <cstdint>
#include <cstring>
#include <limits>
#include <span>
#include <string_view>
#include <type_traits>

namespace vxsign {

/// The command's place in the protocol.
struct Code
{
    std::uint8_t major;
    std::uint8_t minor;
};

/// Bytes of a request, of any length. Refused: a null pointer stood where bytes belong.
struct Block
{
    std::span<const std::uint8_t> bytes;
    bool refused = false;
};

/// `length` bytes of the caller's, who may leave the pointer out when there are none.
inline Block Bytes(const void* data, std::size_t length)
{
    if (data == nullptr)
        return {{}, length != 0};
    return {{static_cast<const std::uint8_t*>(data), length}};
}

/// A text with its terminator, cut to `longest` bytes (and then without).
inline Block TerminatedText(const char* text, std::size_t longest)
{
    if (text == nullptr)
        return {{}, true};
    return Bytes(text, std::min(::strnlen(text, longest) + 1, longest));
}

/// A text without its terminator.
inline Block PlainText(const char* text)
{
    if (text == nullptr)
        return {{}, true};
    return Bytes(text, std::strlen(text));
}

/// A part of a payload: `Size` bytes of the caller's.
template <std::size_t Size>
struct Copy
{
    const void* data;
};

/// A part of a payload: a text of at most `Size` bytes, zero padded, without terminator when full.
template <std::size_t Size>
struct Name
{
    const char* text;
};

/// A part of a payload: zeros.
template <std::size_t Size>
struct Zeros
{
};

/// A block of `Size` bytes made of fields that follow each other; what they leave is zero. Numbers go in little-endian,
/// each in its own width.
template <std::size_t Size>
class Fields
{
public:
    template <class... Parts>
    constexpr explicit Fields(const Parts&... parts)
    {
        static_assert((SizeOf<Parts>() + ... + 0) <= Size, "a field lies outside its block");
        (Put(parts), ...);
    }

    operator Block() const { return {bytes, refused}; }
    operator std::span<const std::uint8_t>() const { return bytes; }

private:
    template <class Part>
    struct PartSize : std::integral_constant<std::size_t, sizeof(Part)>
    {
        static_assert(std::integral<Part>);
    };
    template <std::size_t N>
    struct PartSize<Copy<N>> : std::integral_constant<std::size_t, N>
    {
    };
    template <std::size_t N>
    struct PartSize<Name<N>> : std::integral_constant<std::size_t, N>
    {
    };
    template <std::size_t N>
    struct PartSize<Zeros<N>> : std::integral_constant<std::size_t, N>
    {
    };

    template <class Part>
    static constexpr std::size_t SizeOf()
    {
        return PartSize<Part>::value;
    }

    template <std::integral Number>
    constexpr void Put(Number number)
    {
        StoreLittle(bytes.data() + used, static_cast<std::make_unsigned_t<Number>>(number));
        used += sizeof(Number);
    }
    template <std::size_t N>
    void Put(const Copy<N>& part)
    {
        if (part.data != nullptr)
            std::memcpy(bytes.data() + used, part.data, N);
        refused |= part.data == nullptr;
        used += N;
    }
    template <std::size_t N>
    void Put(const Name<N>& part)
    {
        if (part.text != nullptr)
            std::memcpy(bytes.data() + used, part.text, ::strnlen(part.text, N));
        refused |= part.text == nullptr;
        used += N;
    }
    template <std::size_t N>
    constexpr void Put(const Zeros<N>&)
    {
        used += N;
    }

    std::array<std::uint8_t, Size> bytes{};
    std::size_t used = 0;
    bool refused = false;
};

/// The length of a text, 0 for a null.
inline std::size_t TextLength(const char* text)
{
    return text != nullptr ? std::strlen(text) : 0;
}

/// A block at a length of its own: cut, or followed by zeros. Refused when it is longer than any payload.
class OfLength
{
public:
    OfLength(const Block& block, std::size_t length)
        : size(std::min(length, bytes.size())), refused(block.refused || length > bytes.size())
    {
        std::copy_n(block.bytes.begin(), std::min(size, block.bytes.size()), bytes.begin());
    }

    operator Block() const { return {{bytes.data(), size}, refused}; }

private:
    std::array<std::uint8_t, kLongestPayload> bytes{};
    std::size_t size;
    bool refused;
};

/// The payload and the extended part of a request.
struct Payload
{
    Block block;
    explicit Payload(const Block& b) : block(b) {}
};
struct Extended
{
    Block block;
    explicit Extended(const Block& b) : block(b) {}
};

/// One output of a command, filled from the reply when the command succeeds.
struct ReplyField
{
    enum class Kind : std::uint8_t
    {
        kNumber,   // `size` bytes of the payload as an integer
        kCount,    // 16 bits of the payload as an integer of 32
        kBytes,    // `size` bytes from an offset of the payload on
        kShort,    // as many bytes as the payload has, `size` at most
        kExtended, // as many whole records as the extended part has, `size` bytes at most
    };

    void* target;
    Kind kind;
    std::uint32_t offset;
    std::uint32_t size;
    bool required = true;
    std::uint32_t recordSize = 1;

    void Take(const ReplyView& reply) const;
};

/// The number at a payload offset.
template <std::size_t Offset, std::unsigned_integral Number>
constexpr ReplyField Out(Number* target)
{
    static_assert(Offset + sizeof(Number) <= kLongestPayload, "a field lies outside its block");
    return {target, ReplyField::Kind::kNumber, Offset, sizeof(Number)};
}

/// The 16-bit number at a payload offset, for a caller who takes it in 32 bits.
template <std::size_t Offset>
constexpr ReplyField OutCount(std::uint32_t* target)
{
    static_assert(Offset + sizeof(std::uint16_t) <= kLongestPayload, "a field lies outside its block");
    return {target, ReplyField::Kind::kCount, Offset, sizeof(std::uint16_t)};
}

/// `size` bytes from a payload offset on.
template <std::size_t Offset>
constexpr ReplyField OutBytes(void* target, std::uint32_t size)
{
    return {target, ReplyField::Kind::kBytes, Offset, size};
}

/// The payload as far as it goes, `longest` bytes at most; the rest of the target stays as it was.
constexpr ReplyField ShortCopy(void* target, std::uint32_t longest)
{
    return {target, ReplyField::Kind::kShort, 0, longest};
}

/// The number in the payload's first word; with an empty payload the target stays as it was.
constexpr ReplyField OutIfThere(std::uint32_t* target)
{
    return ShortCopy(target, sizeof *target);
}

/// The extended part as far as it goes, `capacity` bytes at most; the rest of the target stays as it was.
constexpr ReplyField OutExtended(void* target, std::uint32_t capacity)
{
    return {target, ReplyField::Kind::kExtended, 0, capacity};
}

/// Whole records of the extended part, `most` of them at most; the rest of the target stays as it was.
template <std::uint32_t RecordSize>
constexpr ReplyField OutRecords(void* target, std::uint32_t most)
{
    const std::uint32_t fitting = std::min(most, kLongestExtended / RecordSize);
    return {target, ReplyField::Kind::kExtended, 0, fitting * RecordSize, true, RecordSize};
}

/// An output that the caller may leave out with a null pointer.
constexpr ReplyField Optional(ReplyField field)
{
    field.required = false;
    return field;
}

/// The outputs of one command.
template <std::size_t Count>
struct Reply
{
    std::array<ReplyField, Count> fields;
    template <class... Field>
    constexpr explicit Reply(const Field&... field) : fields{field...}
    {
    }
};
template <class... Field>
Reply(const Field&...) -> Reply<sizeof...(Field)>;

/// A whole flat command.
struct CommandRow
{
    Code code;
    Block payload;
    Block extended;
    std::span<const ReplyField> reply;

    explicit CommandRow(Code c) : code(c) {}
    void Add(const Payload& part) { payload = part.block; }
    void Add(const Extended& part) { extended = part.block; }
    template <std::size_t Count>
    void Add(const Reply<Count>& part)
    {
        reply = part.fields;
    }
};

} // namespace vxsign
