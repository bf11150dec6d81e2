// The arguments that a command was given, checked by their types.
#pragma once

#include "vxctl/cli/argument.h"
#include "vxctl/cli/numbers.h"

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vxctl {

class Args
{
public:
    // What the command line says for an argument of the command. Throws UsageError for what its type refuses.
    void Add(const Argument& argument, const std::vector<std::string>& texts);

    // Each is named as in its row; of "-n,--count" either will do. What was not given has its default, or is empty or
    // 0.
    bool Has(std::string_view name) const { return Find(name).isGiven; }
    const std::string& Text(std::string_view name) const;
    const std::vector<std::string>& List(std::string_view name) const { return Find(name).texts; }
    std::vector<std::uint8_t> Bytes(std::string_view name) const;
    std::size_t Choice(std::string_view name) const; // the place of the word among the choices
    std::vector<std::string> LocalFiles() const;     // that the command may write

    // Puts other files in the place of those that one of these arguments has the command write.
    void ChangeLocalFiles(std::span<const Argument> of, const std::function<std::string(const std::string&)>& change);

    template <class Integer = std::uint32_t>
    Integer Number(std::string_view name, Integer otherwise = 0) const
    {
        return static_cast<Integer>(ParseNumber(Text(name)).value_or(otherwise));
    }

private:
    struct Given
    {
        const Argument* argument;
        std::vector<std::string> texts;
        bool isGiven;
    };

    const Given& Find(std::string_view name) const;

    std::vector<Given> all;
};

} // namespace vxctl
