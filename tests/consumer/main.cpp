// A C++ program on the installed library: a login response, enciphered with a key, out and in again.
#include <cstdio>
#include <cstring>
#include <vector>

#include "zel_platform/default_layer.h"
#include "zel_protocol/zel_protocol.h"

int main()
{
    constexpr int kCodecMode = 1;
    ZEL_PLATFORM_KEY key;
    for (unsigned i = 0; i < sizeof key.bytes; ++i)
        key.bytes[i] = static_cast<unsigned char>(i * 7 + 1);

    ZEL_PROTOCOL_HEADER header;
    ZEL_PROTOCOL_HEADER_init(&header);
    std::strcpy(header.Msg_type, "USER_AUTH_MESSAGE");
    std::strcpy(header.Msg_code, "CMD_USER_AUTH");

    USER_AUTH_CMD_USER_AUTH_PARAM login;
    USER_AUTH_CMD_USER_AUTH_PARAM_init(&login);
    std::strcpy(login.Sessionid, "83a1");
    login.MAXChannels = 16;

    std::vector<char> frame(8192);
    const int length = ZelProtocolXMLCompose(&header, &login, 1, kCodecMode, &key, frame.data(),
                                             static_cast<int>(frame.size()));
    if (length <= 8) {
        std::fprintf(stderr, "compose: %d\n", length);
        return 1;
    }

    for (const bool rightKey : {false, true}) {
        ZEL_PLATFORM_KEY used = key;
        if (!rightKey)
            used.bytes[0] ^= 1;
        std::vector<char> payload(frame.begin() + 8, frame.begin() + length);
        ZEL_PROTOCOL_HEADER received;
        ZEL_PROTOCOL_HEADER_init(&received);
        void* result = nullptr;
        const int status = ZelProtocolMSGAnalysisStart(payload.data(), static_cast<int>(payload.size()),
                                                       kCodecMode, &used, &received, &result);
        if (!rightKey) {
            if (status != ZEL_ERR_CODEC || result) {
                std::fprintf(stderr, "analysis with the wrong key: %d\n", status);
                return 1;
            }
            continue;
        }
        if (status != 0 || !result) {
            std::fprintf(stderr, "analysis: %d\n", status);
            return 1;
        }
        const auto* read = static_cast<const USER_AUTH_CMD_USER_AUTH_PARAM*>(result);
        const bool same = std::strcmp(read->Sessionid, login.Sessionid) == 0 && read->MAXChannels == 16;
        ZelProtocolMSGAnalysisStop(&result);
        if (!same) {
            std::fprintf(stderr, "the record came back changed\n");
            return 1;
        }
    }
    return 0;
}
