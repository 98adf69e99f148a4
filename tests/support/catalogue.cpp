#include "support/catalogue.h"

#include <cstddef>

namespace test {

namespace {

template <class Record, int (*init)(Record*)>
int initOf(void* record)
{
    return init(static_cast<Record*>(record));
}

#define ZEL_RECORD(name) sizeof(name), initOf<name, name##_init>

void completeMotion(void* record)
{
    static PTZ_CONTROL_PTZ_CMD_OUTHERCTRL_PARAM speeds = {12, 34};
    auto& command = *static_cast<PTZ_CONTROL_PTZ_CMD_PARAM*>(record);
    command = {3, "left_up", &speeds};
}

void completePlainCommand(void* record)
{
    *static_cast<PTZ_CONTROL_PTZ_CMD_PARAM*>(record) = {3, "CallWatchGuard", nullptr};
}

template <int code, class Extension>
void completeAlarm(void* record)
{
    static Extension extension;
    memset(&extension, '1', sizeof extension);
    auto& alarm = *static_cast<ALARM_REPORT_CMD_RPEORT_ALARM_PARAM*>(record);
    alarm.Alarm_code = code;
    alarm.pExData = &extension;
}

template <class Record>
void completeData(void* record)
{
    auto& data = *static_cast<Record*>(record);
    data.DataLen = 3;
    data.pData = nullptr;
}

void completeKeyFrame(void* record)
{
    static_cast<SYSTEM_CONTROL_1032_PARAM*>(record)->bSendIpc = 1;
}

void completeAuthority(void* record)
{
    static_cast<SYSTEM_CONTROL_1020_PARAM*>(record)->bRemoteAuthority = 0;
}

} // namespace

const std::vector<CatalogueEntry>& catalogue()
{
    static const std::vector<CatalogueEntry> all = {
        {"ZEL_HEARTBEAT_MESSAGE", "CMD_HEARTBEAT", {}, ZEL_RECORD(ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM)},
        {"AUXPTZ_HEARTBEAT_MESSAGE", "CMD_HEARTBEAT", {}, ZEL_RECORD(AUXPTZ_HEARTBEAT_CMD_HEARTBEAT_PARAM)},
        {"NVR_PRODUCE_TEST_MESSAGE", "CMD_HEARTBEAT", {}, ZEL_RECORD(ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM)},
        {"USER_AUTH_MESSAGE", "CMD_USER_AUTH", {0, 1}, ZEL_RECORD(USER_AUTH_CMD_USER_AUTH_PARAM)},

        {"SYSTEM_SEARCHIPC_MESSAGE", "1", {0, 1}, ZEL_RECORD(SYSTEM_SEARCHIPC_1_PARAM)},
        {"SYSTEM_SEARCHIPC_MESSAGE", "3", {0, 1}, ZEL_RECORD(SYSTEM_SEARCHIPC_3_PARAM)},
        {"SYSTEM_SEARCHIPC_MESSAGE", "21", {0, 1}, ZEL_RECORD(SYSTEM_SEARCHIPC_21_PARAM)},

        {"LIVE_STREAM_MESSAGE", "CMD_STREAM_START", {0, 1}, ZEL_RECORD(LIVE_STREAM_CMD_STREAM_START_PARAM)},
        {"LIVE_STREAM_MESSAGE", "1062", {0, 1}, ZEL_RECORD(LIVE_STREAM_1062_PARAM)},
        {"LIVE_STREAM_MESSAGE", "CMD_STREAM_STOP", {0, 1}, ZEL_RECORD(LIVE_STREAM_CMD_STREAM_STOP_PARAM)},
        {"LIVE_STREAM_MESSAGE",
         "CMD_STREAM_QUALITY",
         {0, 1},
         ZEL_RECORD(LIVE_STREAM_CMD_STREAM_QUALITY_PARAM)},

        {"MEDIA_DATA_MESSAGE",
         "1",
         {0, 1},
         ZEL_RECORD(MEDIA_DATA_1_PARAM),
         completeData<MEDIA_DATA_1_PARAM>,
         offsetof(MEDIA_DATA_1_PARAM, pData)},
        {"MEDIA_DATA_MESSAGE",
         "2",
         {0, 1},
         ZEL_RECORD(MEDIA_DATA_2_PARAM),
         completeData<MEDIA_DATA_2_PARAM>,
         offsetof(MEDIA_DATA_2_PARAM, pData)},
        {"MEDIA_DATA_MESSAGE",
         "3",
         {0},
         ZEL_RECORD(MEDIA_DATA_3_PARAM),
         completeData<MEDIA_DATA_3_PARAM>,
         offsetof(MEDIA_DATA_3_PARAM, pData)},
        {"MEDIA_DATA_MESSAGE",
         "4",
         {0, 1},
         ZEL_RECORD(MEDIA_DATA_4_PARAM),
         completeData<MEDIA_DATA_4_PARAM>,
         offsetof(MEDIA_DATA_4_PARAM, pData)},
        {"MEDIA_DATA_MESSAGE",
         "5",
         {0, 1},
         ZEL_RECORD(MEDIA_DATA_5_PARAM),
         completeData<MEDIA_DATA_5_PARAM>,
         offsetof(MEDIA_DATA_5_PARAM, pData)},
        {"MEDIA_DATA_MESSAGE", "6", {0}, ZEL_RECORD(MEDIA_DATA_6_PARAM)},
        {"MEDIA_DATA_MESSAGE", "7", {0, 1}, ZEL_RECORD(MEDIA_DATA_7_PARAM)},
        {"MEDIA_DATA_MESSAGE",
         "8",
         {0, 1},
         ZEL_RECORD(MEDIA_DATA_8_PARAM),
         completeData<MEDIA_DATA_8_PARAM>,
         offsetof(MEDIA_DATA_8_PARAM, pData)},

        {"NVR_REPLAY_MESSAGE", "3001", {0, 1}, ZEL_RECORD(NVR_REPLAY_3001_PARAM)},
        {"NVR_REPLAY_MESSAGE", "3002", {0, 1}, ZEL_RECORD(NVR_REPLAY_3002_PARAM)},
        {"NVR_REPLAY_MESSAGE", "3003", {0, 1}, ZEL_RECORD(NVR_REPLAY_3003_PARAM)},
        {"NVR_REPLAY_MESSAGE", "3004", {0, 1}, ZEL_RECORD(NVR_REPLAY_3004_PARAM)},
        {"NVR_REPLAY_MESSAGE", "3005", {0, 1}, ZEL_RECORD(NVR_REPLAY_3005_PARAM)},
        {"NVR_REPLAY_MESSAGE", "3006", {0, 1}, ZEL_RECORD(NVR_REPLAY_3006_PARAM)},
        {"NVR_REPLAY_MESSAGE", "3007", {0, 1}, ZEL_RECORD(NVR_REPLAY_3007_PARAM)},
        {"NVR_REPLAY_MESSAGE", "3008", {0, 1}, ZEL_RECORD(NVR_REPLAY_3008_PARAM)},
        {"NVR_REPLAY_MESSAGE", "3009", {0, 1}, ZEL_RECORD(NVR_REPLAY_3009_PARAM)},
        {"NVR_REPLAY_MESSAGE", "3010", {0, 1}, ZEL_RECORD(NVR_REPLAY_3010_PARAM)},
        {"NVR_REPLAY_MESSAGE", "3011", {0, 1}, ZEL_RECORD(NVR_REPLAY_3011_PARAM)},
        {"NVR_REPLAY_MESSAGE", "3012", {1}, ZEL_RECORD(NVR_REPLAY_3012_PARAM)},
        {"NVR_REPLAY_MESSAGE", "3013", {0, 1}, ZEL_RECORD(NVR_REPLAY_3013_PARAM)},
        {"NVR_REPLAY_MESSAGE", "3014", {0, 1}, ZEL_RECORD(NVR_REPLAY_3014_PARAM)},
        {"NVR_REPLAY_MESSAGE", "3015", {0, 1}, ZEL_RECORD(NVR_REPLAY_3015_PARAM)},
        {"NVR_REPLAY_MESSAGE", "3016", {0, 1}, ZEL_RECORD(NVR_REPLAY_3016_PARAM)},
        {"NVR_REPLAY_MESSAGE", "3017", {0, 1}, ZEL_RECORD(NVR_REPLAY_3017_PARAM)},

        {"PTZ_CONTROL_MESSAGE",
         "PTZ_CMD",
         {0, 1},
         ZEL_RECORD(PTZ_CONTROL_PTZ_CMD_PARAM),
         completeMotion,
         offsetof(PTZ_CONTROL_PTZ_CMD_PARAM, pExData)},
        {"PTZ_CONTROL_MESSAGE",
         "PTZ_CMD",
         {0},
         ZEL_RECORD(PTZ_CONTROL_PTZ_CMD_PARAM),
         completePlainCommand,
         offsetof(PTZ_CONTROL_PTZ_CMD_PARAM, pExData)},

        {"ALARM_REPORT_MESSAGE",
         "CMD_REPORT_ALARM",
         {0},
         ZEL_RECORD(ALARM_REPORT_CMD_RPEORT_ALARM_PARAM),
         completeAlarm<38, ALARM_REPORT_HUMANFACE_INFO>,
         offsetof(ALARM_REPORT_CMD_RPEORT_ALARM_PARAM, pExData)},
        {"ALARM_REPORT_MESSAGE",
         "CMD_REPORT_ALARM",
         {0},
         ZEL_RECORD(ALARM_REPORT_CMD_RPEORT_ALARM_PARAM),
         completeAlarm<44, ALARM_REPORT_ANIMAL_INFO>,
         offsetof(ALARM_REPORT_CMD_RPEORT_ALARM_PARAM, pExData)},
        {"ALARM_REPORT_MESSAGE",
         "CMD_REPORT_ALARM",
         {0},
         ZEL_RECORD(ALARM_REPORT_CMD_RPEORT_ALARM_PARAM),
         completeAlarm<32, ALARM_REPORT_CROSSBORDER_INFO>,
         offsetof(ALARM_REPORT_CMD_RPEORT_ALARM_PARAM, pExData)},

        {"SYSTEM_CONTROL_MESSAGE", "1012", {1}, ZEL_RECORD(SYSTEM_CONTROL_1012_PARAM)},
        {"SYSTEM_CONTROL_MESSAGE", "1019", {1}, ZEL_RECORD(SYSTEM_CONTROL_1019_PARAM)},
        {"SYSTEM_CONTROL_MESSAGE", "1020", {1}, ZEL_RECORD(SYSTEM_CONTROL_1020_PARAM), completeAuthority},
        {"SYSTEM_CONTROL_MESSAGE", "1030", {1}, ZEL_RECORD(SYSTEM_CONTROL_1030_PARAM)},
        {"SYSTEM_CONTROL_MESSAGE", "1031", {1}, ZEL_RECORD(SYSTEM_CONTROL_1031_PARAM)},
        {"SYSTEM_CONTROL_MESSAGE", "1032", {0}, ZEL_RECORD(SYSTEM_CONTROL_1032_PARAM), completeKeyFrame},
        {"SYSTEM_CONTROL_MESSAGE", "1033", {0}, ZEL_RECORD(SYSTEM_CONTROL_1033_PARAM)},
        {"SYSTEM_CONTROL_MESSAGE", "1034", {1}, ZEL_RECORD(SYSTEM_CONTROL_1034_PARAM)},
        {"SYSTEM_CONTROL_MESSAGE", "3000", {1}, ZEL_RECORD(SYSTEM_CONTROL_3000_PARAM)},

        {"SYSTEM_CONFIG_GET_MESSAGE", "202", {1}, ZEL_RECORD(SYSTEM_CONFIG_GET_202_PARAM)},
        {"SYSTEM_CONFIG_GET_MESSAGE", "5007", {1}, ZEL_RECORD(SYSTEM_CONFIG_GET_202_PARAM)},
        {"SYSTEM_CONFIG_GET_MESSAGE", "203", {1}, ZEL_RECORD(SYSTEM_CONFIG_GET_203_PARAM)},
        {"SYSTEM_CONFIG_SET_MESSAGE", "222", {0}, ZEL_RECORD(SYSTEM_CONFIG_SET_222_PARAM)},
        {"SYSTEM_CONFIG_SET_MESSAGE", "223", {0}, ZEL_RECORD(SYSTEM_CONFIG_SET_223_PARAM)},
        {"SYSTEM_CONFIG_GET_MESSAGE", "300", {1}, ZEL_RECORD(SYSTEM_CONFIG_GET_300_PARAM)},
        {"SYSTEM_CONFIG_GET_MESSAGE", "315", {1}, ZEL_RECORD(SYSTEM_CONFIG_GET_315_PARAM)},
        {"SYSTEM_CONFIG_SET_MESSAGE", "325", {0}, ZEL_RECORD(SYSTEM_CONFIG_SET_325_PARAM)},
        {"SYSTEM_CONFIG_SET_MESSAGE", "335", {0}, ZEL_RECORD(SYSTEM_CONFIG_SET_335_PARAM)},
        {"SYSTEM_CONFIG_GET_MESSAGE", "500", {1}, ZEL_RECORD(SYSTEM_CONFIG_GET_500_PARAM)},
        {"SYSTEM_CONFIG_SET_MESSAGE", "520", {0}, ZEL_RECORD(SYSTEM_CONFIG_SET_520_PARAM)},
        {"SYSTEM_CONFIG_GET_MESSAGE", "1020", {1}, ZEL_RECORD(SYSTEM_CONTROL_1020_PARAM), completeAuthority},
        {"SYSTEM_CONFIG_GET_MESSAGE", "1402", {1}, ZEL_RECORD(SYSTEM_CONFIG_GET_1402_PARAM)},
        {"SYSTEM_CONFIG_SET_MESSAGE", "1403", {0}, ZEL_RECORD(SYSTEM_CONFIG_SET_1403_PARAM)},
        {"SYSTEM_CONFIG_GET_MESSAGE", "3801", {0, 1}, ZEL_RECORD(SYSTEM_CONFIG_GET_3801_PARAM)},
        {"SYSTEM_CONFIG_GET_MESSAGE", "3803", {0, 1}, ZEL_RECORD(SYSTEM_CONFIG_GET_3803_PARAM)},
        {"SYSTEM_CONFIG_SET_MESSAGE", "3804", {0, 1}, ZEL_RECORD(SYSTEM_CONFIG_SET_3804_PARAM)},
    };
    return all;
}

RecordBytes freshRecord(const CatalogueEntry& entry)
{
    RecordBytes bytes(entry.size / sizeof(long double) + 1);
    entry.init(bytes.data());
    return bytes;
}

RecordBytes fullRecord(const CatalogueEntry& entry)
{
    RecordBytes bytes(entry.size / sizeof(long double) + 1);
    memset(bytes.data(), '1', entry.size);
    if (entry.complete)
        entry.complete(bytes.data());
    return bytes;
}

ZEL_PROTOCOL_HEADER catalogueHeader(const CatalogueEntry& entry)
{
    ZEL_PROTOCOL_HEADER header;
    ZEL_PROTOCOL_HEADER_init(&header);
    strncpy(header.Msg_type, entry.type, sizeof header.Msg_type - 1);
    strncpy(header.Msg_code, entry.code, sizeof header.Msg_code - 1);
    return header;
}

} // namespace test
