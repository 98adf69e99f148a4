#include <cstdio>
#include <cstring>

#include "zel_protocol/zel_protocol.h"

int main()
{
    ZEL_PROTOCOL_HEADER header;
    ZEL_PROTOCOL_HEADER_init(&header);
    strcpy(header.Msg_type, "NVR_REPLAY_MESSAGE");
    strcpy(header.Msg_code, "3010");
    NVR_REPLAY_3010_PARAM jump;
    NVR_REPLAY_3010_PARAM_init(&jump);
    jump.ChannelId = 2;
    strcpy(jump.Time, "2024-05-06 07:08:09");
    char frame[1024];
    const int size = ZelProtocolXMLCompose(&header, &jump, ZEL_KIND_REQUEST, ZEL_CODEC_PLAIN, nullptr, frame,
                                           sizeof frame);
    void* record = nullptr; // the analysis takes what follows the frame's head
    const int status = ZelProtocolMSGAnalysisStart(frame + ZEL_FRAME_HEAD_SIZE, size - ZEL_FRAME_HEAD_SIZE,
                                                   ZEL_CODEC_PLAIN, nullptr, &header, &record);
    if (status == 0)
        printf("jump to %s\n", static_cast<NVR_REPLAY_3010_PARAM*>(record)->Time);
    ZelProtocolMSGAnalysisStop(&record);
    return status;
}
