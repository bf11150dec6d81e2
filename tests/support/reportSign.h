// A sign with files and a database by script, and what callbacks were given.
#pragma once

#include "support/scriptedSign.h"

#include <cstring>
#include <map>

namespace vxsign::test {

/// What a ReportSign was asked for.
using Asked = std::vector<std::string>;

/// Text from hexadecimal digits.
inline std::string HexText(std::string_view digits)
{
    return ToText(Hex(digits));
}

/// What callbacks were given, byte by byte, and what they return.
struct Taken
{
    inline static std::vector<Bytes> records;
    inline static std::uint32_t user;
    inline static std::uint32_t result;

    Taken()
    {
        records.clear();
        user = result = 0;
    }

    template <class Record>
    static std::uint32_t WithUser(std::uint32_t number, const Record* record)
    {
        user = number;
        return Plain(record);
    }
    template <class Record>
    static std::uint32_t Plain(const Record* record)
    {
        const auto* const bytes = reinterpret_cast<const std::uint8_t*>(record);
        records.emplace_back(bytes, bytes + sizeof *record);
        return result;
    }

    /// One of them as a record again.
    template <class Record>
    static Record As(std::size_t index)
    {
        Record record{};
        EXPECT_EQ(records.at(index).size(), sizeof record);
        std::memcpy(static_cast<void*>(&record), records.at(index).data(), sizeof record);
        return record;
    }
};

/// A sign with files and a database, which keeps what it was asked for: "read D:\A" (once for a file), "delete D:\A",
/// "sql select ...", and "major/minor" for anything else.
class ReportSign : public ScriptedSign
{
public:
    ReportSign()
    {
        otherwise = [this](const Packet& request) { return Take(request); };
    }

    Asked asked;
    std::map<std::string, std::string> files;            // by their path; others are not there
    std::map<std::string, std::deque<Answer>> answers;   // by what is asked, in their order; the last one stays
    std::function<Answer(const std::string& sql)> onSql; // for what has no answer

    void Renew()
    {
        ScriptedSign::Renew();
        asked.clear();
        files.clear();
        answers.clear();
        onSql = {};
        const Taken nothing;
    }

    /// A page of rows, as the database gives it.
    static Answer Rows(std::uint16_t count, std::string_view text) { return Good(Little(count, 4), FromText(text)); }

private:
    static std::string Text(const Bytes& bytes, std::size_t from) { return ToText(Part(bytes, from)).c_str(); }

    Answer Take(const Packet& request)
    {
        const int code = request.Major() * 100 + request.Minor();
        if (code == 108)
            return Read(request.Payload());
        std::string what = std::to_string(request.Major()) + "/" + std::to_string(request.Minor());
        if (code == 706)
            what = "delete " + Text(request.Payload(), 0);
        if (code == 121)
            what = "sql " + Text(request.Extended(), 0);
        asked.push_back(what);
        if (answers.count(what) != 0)
            return Next(what);
        return code == 121 && onSql ? onSql(what.substr(4)) : Good();
    }

    Answer Read(const Bytes& payload)
    {
        const std::size_t chunk = payload[0] + 256u * payload[1];
        const std::size_t number = payload[2] + 256u * payload[3];
        const std::string path = Text(payload, 4);
        if (number == 1)
            asked.push_back("read " + path);
        if (answers.count("read " + path) != 0)
            return Next("read " + path);
        if (files.count(path) == 0)
            return Refusal(36872);
        const std::string& file = files[path];
        return Good(Bytes(4) + Little(static_cast<std::uint32_t>(file.size()), 4),
                    Part(FromText(file), (number - 1) * chunk, chunk));
    }

    Answer Next(const std::string& what)
    {
        std::deque<Answer>& queue = answers[what];
        const Answer answer = queue.front();
        if (queue.size() > 1)
            queue.pop_front();
        return answer;
    }
};

/// Readers of a sign with files and a database.
class ReportTest : public TestWith<ReportSign>
{
protected:
    const Taken taken;
};

} // namespace vxsign::test
