#include <thread>

#include "support/wire.h"
#include "zel_platform/default_layer.h"

using namespace test;

namespace {

// Calls share nothing: run under the thread sanitizer, this shows it.
TEST(Threads, EightAtOnce)
{
    ZEL_PLATFORM_KEY key{{9}};
    std::vector<std::thread> threads;
    for (int t = 0; t < 8; ++t)
        threads.emplace_back([&key, t] {
            for (int i = 0; i < 100; ++i) {
                USER_AUTH_CMD_USER_AUTH_PARAM login;
                USER_AUTH_CMD_USER_AUTH_PARAM_init(&login);
                login.MAXChannels = t * 1000 + i;
                const int mode = i % 3 - 1;
                const std::string text = compose(headerOf("USER_AUTH_MESSAGE", ""), &login, 1, 4096, mode,
                                                 mode > 0 ? &key : nullptr)
                                             .text;
                const Analysed analysed = analyse(text, mode, &key);
                ASSERT_EQ(analysed.result, 0);
                EXPECT_EQ(analysed.as<USER_AUTH_CMD_USER_AUTH_PARAM>().MAXChannels, t * 1000 + i);
            }
        });
    for (std::thread& thread : threads)
        thread.join();
}

} // namespace
