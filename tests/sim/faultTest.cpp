// Faults that the server puts into replies.
#include "sim/server/faults.h"

#include "support/signFixture.h"

#include <algorithm>
#include <stdexcept>

namespace vxsign::test {
namespace {

const Bytes kReply{0x55, 0xA8, 0x07, 0x01, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00,
                   0x01, 0x00, 0x04, 0x01, 0x01, 0x00, 0xFF, 0x00, 0x01, 0x00};

Bytes Through(const char* faults, const Bytes& reply = kReply)
{
    return vxsim::FaultInjector(vxsim::ParseFaults(faults)).Apply(reply);
}

TEST(Faults, EachDoesWhatItsNameSays)
{
    EXPECT_EQ(Through("drop=0"), kReply);
    EXPECT_EQ(Through("drop=1,noise=5"), Bytes{});
    for (int seed = 1; seed < 200; ++seed) {
        const std::string suffix = ",seed=" + std::to_string(seed);
        const Bytes cut = Through(("truncate=1" + suffix).c_str());
        ASSERT_GE(cut.size(), 1U);
        ASSERT_LT(cut.size(), kReply.size());
        EXPECT_TRUE(std::equal(cut.begin(), cut.end(), kReply.begin()));

        Bytes stranger = Through(("wrongid=1" + suffix).c_str());
        EXPECT_NE(stranger[10] | stranger[11] << 8, 1);
        // The sum grows by what the id has grown.
        EXPECT_EQ(stranger[2] | stranger[3] << 8, 0x0107 - 1 + stranger[10] + stranger[11]);

        Bytes wrong = Through(("badsum=1" + suffix).c_str());
        EXPECT_NE(wrong[2] | wrong[3] << 8, 0x0107);
        wrong[2] = 0x07;
        EXPECT_EQ(wrong, kReply);

        const Bytes noisy = Through(("noise=9" + suffix).c_str());
        ASSERT_EQ(noisy.size(), kReply.size() + 9);
        EXPECT_TRUE(std::equal(kReply.begin(), kReply.end(), noisy.begin() + 9));
        EXPECT_EQ(std::count(noisy.begin(), noisy.begin() + 9, 0x55), 0);
    }
}

TEST(Faults, ASeedRepeatsARunAndProbabilitiesAreKept)
{
    vxsim::FaultInjector first(vxsim::ParseFaults("drop=0.25,noise=2,seed=11"));
    vxsim::FaultInjector second(vxsim::ParseFaults("seed=11,noise=2,drop=0.25"));
    int dropped = 0;
    for (int i = 0; i < 4000; ++i) {
        const Bytes reply = first.Apply(kReply);
        ASSERT_EQ(reply, second.Apply(kReply));
        dropped += reply.empty() ? 1 : 0;
    }
    EXPECT_NEAR(dropped, 1000, 150);
}

TEST(Faults, TextsThatMakeNoSenseAreRefusedByName)
{
    for (const char* text :
         {"", "drop", "drop=", "drop=x", "drop=1.1", "drop=-0.1", "drop=nan", "drop=0.1x", "noise=65", "noise=-1",
          "noise=1.5", "seed=4294967296", "lose=0.1", "drop=0.1,", ",drop=0.1", "drop=0.1,drop=0.1", "drop =0.1"}) {
        try {
            vxsim::ParseFaults(text);
            ADD_FAILURE() << text;
        } catch (const std::invalid_argument& error) {
            EXPECT_EQ(std::string(error.what()).rfind("fault '", 0), 0U) << error.what();
        }
    }
}

} // namespace
} // namespace vxsign::test
