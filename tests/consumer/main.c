/* A C program on the installed library: a login request, plain, out and in again. */
#include <stdio.h>
#include <string.h>

#include "zel_protocol/zel_protocol.h"

int main(void)
{
    ZEL_PROTOCOL_HEADER header;
    ZEL_PROTOCOL_HEADER_init(&header);
    strcpy(header.Msg_type, "USER_AUTH_MESSAGE");
    strcpy(header.Msg_code, "CMD_USER_AUTH");
    strcpy(header.Msg_flag, "0");

    USER_AUTH_CMD_USER_AUTH_PARAM login;
    USER_AUTH_CMD_USER_AUTH_PARAM_init(&login);
    strcpy(login.Username, "operator");
    strcpy(login.Password, "secret");

    char frame[4096];
    int length = ZelProtocolXMLCompose(&header, &login, ZEL_KIND_REQUEST, ZEL_CODEC_PLAIN, NULL, frame,
                                       (int)sizeof frame);
    if (length <= 8) {
        fprintf(stderr, "compose: %d\n", length);
        return 1;
    }

    ZEL_PROTOCOL_HEADER received;
    ZEL_PROTOCOL_HEADER_init(&received);
    void* result = NULL;
    int status = ZelProtocolMSGAnalysisStart(frame + 8, length - 8, -1, NULL, &received, &result);
    if (status != 0 || result == NULL) {
        fprintf(stderr, "analysis: %d\n", status);
        return 1;
    }
    const USER_AUTH_CMD_USER_AUTH_PARAM* read = result;
    int same = strcmp(received.Msg_type, header.Msg_type) == 0 &&
               strcmp(read->Username, login.Username) == 0 && strcmp(read->Password, login.Password) == 0;
    ZelProtocolMSGAnalysisStop(&result);
    if (!same || result != NULL) {
        fprintf(stderr, "the record came back changed\n");
        return 1;
    }
    return 0;
}
