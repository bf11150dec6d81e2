// Logins: who may give commands, and for how long.
#include "support/signFixture.h"

namespace vxsign::test {
namespace {

constexpr std::uint32_t kOneHost = 0x0A000001;
constexpr std::uint32_t kOtherHost = 0x0A000002;
constexpr unsigned kSilence = 0xFFFFFFFF;

class Login : public SignTest
{
protected:
    Login()
    {
        settings.users = {{"admin", "123456"}, {"a user of 13.", ""}};
        settings.loginHoldMs = 1000;
        settings.address = 0x0A0000C8;
        settings.port = 9520;
        Restart("CDEF");
    }

    unsigned From(std::uint32_t host, std::uint64_t nowMs, unsigned major, unsigned minor, const Bytes& payload = {})
    {
        arrival = {nowMs, host};
        return CodeOf(Ask(major, minor, payload));
    }

    unsigned LogIn(std::uint32_t host, std::uint64_t nowMs, const char* user, const char* password)
    {
        return From(host, nowMs, 10, 1, Padded(user, 14) + Padded(password, 6));
    }
    unsigned Change(std::uint64_t nowMs, const char* user, const char* before, const char* after)
    {
        return From(kOneHost, nowMs, 10, 3, Padded(user, 14) + Padded(before, 6) + Padded(after, 8));
    }
};

TEST_F(Login, NothingButTheLoginIsAnsweredWithoutOne)
{
    arrival.host = kOneHost;
    Expect(36912, {{1, 1}, {2, 1}, {3, 1}, {4, 1}, {6, 1}, {7, 1}, {12, 1}, {255, 1}, {10, 48, Bytes(4, 0)}});
    EXPECT_EQ(LogIn(kOneHost, 0, "Admin", "123456"), 36914U);
    EXPECT_EQ(LogIn(kOneHost, 0, "admin", "12345"), 36913U);
    Expect(36870, {{10, 1, Bytes(16, 0)}});
    Expect(36912, {{4, 1}});
    EXPECT_FALSE(sign->Light().IsBlack());
    EXPECT_EQ(LogIn(kOneHost, 0, "admin", "123456"), 0U);
    Expect(0, {{4, 1}});
    EXPECT_EQ(From(kOtherHost, 0, 4, 1), 36912U);
    EXPECT_EQ(From(kOtherHost, 0, 10, 2), 0U);
    EXPECT_EQ(From(kOneHost, 0, 4, 1), 0U) << "nobody logs another host out";
    Expect(0, {{10, 2}});
    Expect(36912, {{4, 1}});
}

TEST_F(Login, HoldsTheSignForOneUserAndForSomeTime)
{
    EXPECT_EQ(LogIn(kOneHost, 5000, "admin", "123456"), 0U);
    EXPECT_EQ(From(kOneHost, 5999, 3, 1), 0U);
    EXPECT_EQ(From(kOneHost, 6998, 3, 1), 0U);
    EXPECT_EQ(From(kOneHost, 7998, 3, 1), 36912U);
    EXPECT_EQ(LogIn(kOneHost, 8000, "admin", "123456"), 0U);
    Expect(0, {{4, 0}, {4, 20}});
    Expect(36912, {{3, 1}});
    Restart("CDEF");

    EXPECT_EQ(LogIn(kOneHost, 0, "admin", "123456"), 0U);
    EXPECT_EQ(LogIn(kOtherHost, 500, "a user of 13.", ""), 36917U);
    EXPECT_EQ(LogIn(kOtherHost, 500, "admin", "123456"), 0U) << "the same user elsewhere";
    EXPECT_EQ(From(kOneHost, 600, 3, 1), 36912U);
    EXPECT_EQ(LogIn(kOneHost, 1500, "a user of 13.", ""), 0U) << "the other login is over";
    EXPECT_EQ(LogIn(kOneHost, 1500, "admin", "123456"), 0U) << "from the same host";
    settings.users.clear();
    Restart("CDEF"); // without users everybody is in
    EXPECT_EQ(From(kOneHost, 0, 4, 1), 0U);
    EXPECT_EQ(LogIn(kOtherHost, 0, "anyone", "x"), 0U);
    EXPECT_EQ(From(kOneHost, 0, 4, 2), 0U);
}

TEST_F(Login, PasswordsChangeByTheOldOne)
{
    EXPECT_EQ(Change(0, "nobody", "", "x"), 36918U);
    EXPECT_EQ(Change(0, "admin", "654321", "x"), 36915U);
    EXPECT_EQ(Change(0, "admin", "123456", ""), 36870U) << "nobody goes without a password by mistake";
    EXPECT_EQ(Change(0, "admin", "123456", "abcdef"), 0U);
    EXPECT_EQ(LogIn(kOneHost, 0, "admin", "123456"), 36913U);
    EXPECT_EQ(LogIn(kOneHost, 0, "admin", "abcdef"), 0U);
    const Bytes table = Ask(10, 48, Bytes(4, 0));
    EXPECT_EQ(PayloadOf(table), (Bytes{1, 0, 0, 0}));
    EXPECT_EQ(ExtendedOf(table), (Padded("10.0.0.200", 64) + Bytes{0x30, 0x25, 0, 0}));
}

TEST_F(Login, WrongPasswordsSlowTheirHostDown)
{
    EXPECT_EQ(LogIn(kOneHost, 0, "admin", "x"), 36913U);
    EXPECT_EQ(Change(0, "admin", "x", "abcdef"), 36915U) << "counts as well";
    EXPECT_EQ(LogIn(kOneHost, 0, "admin", "x"), 36913U);
    std::uint64_t now = 0;
    for (unsigned seconds = 1; seconds <= 40; ++seconds) {
        const std::uint64_t wait = 1000 * std::min(seconds, 30U);
        EXPECT_EQ(LogIn(kOneHost, now + wait - 1, "admin", "123456"), kSilence) << seconds;
        EXPECT_EQ(Change(now + wait - 1, "admin", "123456", "abcdef"), kSilence);
        now += wait;
        EXPECT_EQ(LogIn(kOneHost, now, "admin", "x"), 36913U);
    }
    EXPECT_EQ(From(kOneHost, now, 4, 1), 36912U) << "the rest is answered";
    EXPECT_EQ(LogIn(kOtherHost, now, "admin", "123456"), 0U) << "so are other hosts";
    EXPECT_EQ(LogIn(kOneHost, now + 30000, "admin", "123456"), 0U);
    EXPECT_EQ(LogIn(kOneHost, now + 30000, "admin", "x"), 36913U);
    EXPECT_EQ(LogIn(kOneHost, now + 30000, "admin", "123456"), 0U) << "the count began anew";

    for (const std::uint64_t late : {0U, 600000U, 600000U})
        EXPECT_EQ(LogIn(kOtherHost, now += late, "admin", "x"), 36913U);
    EXPECT_EQ(LogIn(kOtherHost, now, "admin", "123456"), 0U) << "what is long ago does not count";
    for (int i = 0; i < 3; ++i)
        LogIn(kOneHost, now, "admin", "x");
    EXPECT_EQ(LogIn(kOneHost, now + 1, "admin", "123456"), kSilence);
    for (std::uint32_t host = 1; host <= 256; ++host)
        LogIn(host, now + 1, "admin", "x");
    EXPECT_EQ(LogIn(kOneHost, now + 1, "admin", "123456"), 0U) << "of so many hosts one is forgotten";
}

} // namespace
} // namespace vxsign::test
