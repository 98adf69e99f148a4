// A thread's stack that was painted before, to see how deep a call reaches and what it leaves there.
#ifndef ZEL_TESTS_SECURITY_PAINTED_STACK_H
#define ZEL_TESTS_SECURITY_PAINTED_STACK_H

#include <pthread.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include <gtest/gtest.h>

namespace test {

class PaintedStack
{
public:
    // Runs `work` on a thread of its own.
    template <class Work>
    explicit PaintedStack(Work work) : bytes_(static_cast<char*>(aligned_alloc(4096, kSize)), free)
    {
        memset(bytes_.get(), kPaint, kSize);
        pthread_attr_t attributes;
        pthread_attr_init(&attributes);
        pthread_attr_setstack(&attributes, bytes_.get(), kSize);
        pthread_t thread;
        const auto run = [](void* argument) -> void* {
            (*static_cast<Work*>(argument))();
            return nullptr;
        };
        EXPECT_EQ(pthread_create(&thread, &attributes, run, &work), 0);
        pthread_join(thread, nullptr);
        pthread_attr_destroy(&attributes);
    }

    // Bytes that were reached.
    size_t used() const
    {
        const char* const end = bytes_.get() + kSize;
        return static_cast<size_t>(end - std::find_if(static_cast<const char*>(bytes_.get()), end,
                                                      [](char byte) { return byte != kPaint; }));
    }

    bool holds(const std::string& text) const
    {
        const char* const end = bytes_.get() + kSize;
        return std::search(static_cast<const char*>(bytes_.get()), end, text.begin(), text.end()) != end;
    }

private:
    static constexpr size_t kSize = 1 << 20;
    static constexpr char kPaint = '\x5C';

    std::unique_ptr<char, decltype(&free)> bytes_;
};

} // namespace test

#endif
