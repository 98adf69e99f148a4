#include "samples.h"

#include <cstdio>
#include <cstring>

namespace bench {

namespace {

template <size_t N>
void set(char (&field)[N], const std::string& text)
{
    snprintf(field, N, "%s", text.c_str());
}

template <class Record>
Sample sampleOf(const char* name, MessageId id, const char* type, const char* code, int kind,
                const std::shared_ptr<Record>& record)
{
    Sample sample{name, id, {}, kind, record, sizeof(Record), {}};
    ZEL_PROTOCOL_HEADER_init(&sample.header);
    set(sample.header.Msg_type, type);
    set(sample.header.Msg_code, code);
    set(sample.header.Msg_flag, "IPC-4711");
    return sample;
}

void fillRule(SMART_RULE_PARAM& rule, int seed)
{
    const auto byte = [&seed] { return static_cast<uint8_t>(seed++ % 100); };
    const auto range = [](int32_t(&bounds)[2], int low, int high) {
        bounds[0] = low;
        bounds[1] = high;
    };
    const auto times = [](int32_t(&time)[3], int hour) {
        time[0] = hour;
        time[1] = 30;
        time[2] = 5;
    };
    for (uint8_t* field : {&rule.Enable,
                           &rule.DefEnable,
                           &rule.DetectionAttr,
                           &rule.CrowdFlowStatEnable,
                           &rule.DefCrowdFlowStatEnable,
                           &rule.DetectionSens,
                           &rule.DefDetectionSens,
                           &rule.LightAlarmEnable,
                           &rule.DefLightAlarmEnable,
                           &rule.Lightduration,
                           &rule.EmailAlarmEnable,
                           &rule.Emailduration,
                           &rule.EmailScheduleMode,
                           &rule.LightScheduleMode,
                           &rule.DefLightScheduleMode,
                           &rule.AudioAlarmEnable,
                           &rule.DefAudioAlarmEnable,
                           &rule.AudioAlarmTimes,
                           &rule.AudioScheduleMode,
                           &rule.DefAudioScheduleMode,
                           &rule.AlarmTime,
                           &rule.ShowAlarmCount,
                           &rule.ShowAlarmLine,
                           &rule.MaxCoordinateCapability,
                           &rule.DefTrackEnable,
                           &rule.TrackEnable})
        *field = byte();
    rule.DefAudioAlarmTimes = 3;
    rule.DefLightduration = 30;
    range(rule.DefEmaildurationRange, 10, 300);
    range(rule.DefDetectionSensRange, 0, 100);
    range(rule.DefLightdurationRange, 5, 120);
    range(rule.DefAudioAlarmTimesRange, 1, 5);
    range(rule.VideoResolution, 1920, 1080);
    times(rule.LightAudioAlarmStartTime, 8);
    times(rule.LightAudioAlarmEndTime, 20);
    rule.LightAlarmPeriodNum = rule.AudioAlarmPeriodNum = rule.EmailAlarmPeriodNum = 4;
    for (int i = 0; i < 4; ++i) {
        const TIME_PERIOD period = {6 * i, 15, 0, 6 * i + 5, 45, 59};
        rule.LightAlarmPeriod[i] = rule.AudioAlarmPeriod[i] = rule.EmailAlarmPeriod[i] = period;
    }
    rule.LineCoordinatesNum = 8;
    for (int i = 0; i < 8; ++i)
        rule.LineCoordinates[i] = {120 + 220 * i, 90 + 125 * i};
}

} // namespace

Sample heartbeatSample()
{
    const auto record = std::make_shared<ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM>();
    ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM_init(record.get());
    set(record->Ipcs_stat, "1111000011110000");
    set(record->streamstat, "0110");
    set(record->IpcAbility1, "3");
    set(record->IpcProtoCol, "1001");
    return sampleOf("heartbeat", MessageId::kHeartbeat, "ZEL_HEARTBEAT_MESSAGE", "CMD_HEARTBEAT", 0, record);
}

Sample loginSample()
{
    const auto record = std::make_shared<USER_AUTH_CMD_USER_AUTH_PARAM>();
    USER_AUTH_CMD_USER_AUTH_PARAM_init(record.get());
    record->AuthMethod = 2;
    record->KeyTypeVer = 1;
    record->Version = 3;
    set(record->Username, "operator");
    set(record->Password, "d41d8cd98f00b204e9800998ecf8427e");
    set(record->VendorId, "ZEL-2219");
    set(record->Capbility, "AES256,RSA2048");
    return sampleOf("login request", MessageId::kLogin, "USER_AUTH_MESSAGE", "CMD_USER_AUTH", 0, record);
}

Sample mediaSample()
{
    using Media = SYSTEM_CONFIG_GET_500_PARAM;
    const auto record = std::make_shared<Media>();
    // The single bytes first: a small number in each, three digits in some.
    for (size_t i = 0; i < sizeof(Media); ++i)
        reinterpret_cast<unsigned char*>(record.get())[i] = static_cast<unsigned char>(i * 37 % 151);
    record->AEStep = 3;
    record->BackLight = 40;
    record->AETolerance = 5;
    record->Brightness = 128;
    record->Contrast = 120;
    record->Saturation = 132;
    record->Sharpness = 96;
    record->IvpAdvanceIspNew = 1;
    int hour = 5;
    for (int32_t(*time)[3] :
         {&record->DRCStartTime, &record->DRCEndTime, &record->WDRStartTime, &record->WDREndTime,
          &record->IrcutNightStartTime, &record->IrcutNightEndTime}) {
        (*time)[0] = hour;
        (*time)[1] = 30;
        (*time)[2] = 0;
        hour += 3;
    }
    record->LightModeRange[0] = 0;
    record->LightModeRange[1] = 1;
    record->LightModeRange[2] = 2;
    const auto text = [](auto& field, const char* value) {
        memset(field, 0, sizeof field);
        set(field, value);
    };
    text(record->IrcutLumaList, "10,20,30,40,50");
    text(record->Format, "YYYY-MM-DD hh:mm:ss");
    text(record->Title, "Gate 3, north side");
    text(record->EncodeType, "G711A");
    for (int i = 0; i < 2; ++i) {
        auto& row = record->stEncodeConfig[i];
        row.Stream = i;
        row.Initquant = 28;
        row.BitRate = i == 0 ? 4096 : 512;
        row.FrameRate = 25;
        text(row.Resolution, i == 0 ? "2560*1440" : "640*360");
        text(row.EncodeFormat, "H265");
        text(row.BitRateControl, "VBR");
        auto& mask = record->stMaskRows[i];
        mask.Area1Width = mask.Area2Width = mask.Area3Width = mask.Area4Width = 320;
        mask.Area1Height = mask.Area2Height = mask.Area3Height = mask.Area4Height = 180;
    }
    record->SampleRate = 8000;
    record->BitRate = 64000;
    return sampleOf("500 media configuration", MessageId::kMedia, "SYSTEM_CONFIG_GET_MESSAGE", "500", 1,
                    record);
}

Sample channelsSample(int rows)
{
    const auto record = std::make_shared<SYSTEM_CONFIG_GET_3803_PARAM>();
    SYSTEM_CONFIG_GET_3803_PARAM_init(record.get());
    record->ChannelCount = rows;
    for (int i = 0; i < rows; ++i) {
        auto& row = record->stChannelInfo[i];
        const std::string number = std::to_string(i + 1);
        row.ChannelId = i;
        row.CtrlPort = 8000 + i;
        row.DevMode = 2;
        row.Status = 1;
        row.DevSubType = 7;
        row.Feature = 0x1234567890 + static_cast<uint64_t>(i);
        set(row.Protocol, "ONVIF");
        set(row.IpAddr, "192.168.17." + number);
        set(row.Username, "admin");
        set(row.Password, "c0ffee" + number);
        set(row.ChannnelName, "Warehouse camera " + number);
        row.RtspMainResPort = 554;
        row.RtspSubResPort = 554;
        set(row.RtspMainResPath, "/cam/realmonitor/channel" + number + "/main");
        set(row.RtspSubResPath, "/cam/realmonitor/channel" + number + "/sub");
        set(row.RtspDomain, "camera" + number + ".example.org");
    }
    const std::string name = "3803 channels, " + std::to_string(rows) + (rows == 1 ? " row" : " rows");
    return sampleOf(name.c_str(), MessageId::kChannels, "SYSTEM_CONFIG_GET_MESSAGE", "3803", 1, record);
}

Sample eventSample()
{
    const auto record = std::make_shared<SYSTEM_CONFIG_GET_1402_PARAM>();
    SYSTEM_CONFIG_GET_1402_PARAM_init(record.get());
    fillRule(record->stRegion, 1);
    fillRule(record->stCrossBoundary, 51);
    return sampleOf("1402 intelligent event", MessageId::kEvent, "SYSTEM_CONFIG_GET_MESSAGE", "1402", 1,
                    record);
}

Sample alarmSample()
{
    struct AlarmWithFace
    {
        ALARM_REPORT_CMD_RPEORT_ALARM_PARAM alarm;
        ALARM_REPORT_HUMANFACE_INFO face;
    };
    const auto both = std::make_shared<AlarmWithFace>();
    ALARM_REPORT_CMD_RPEORT_ALARM_PARAM& alarm = both->alarm;
    ALARM_REPORT_CMD_RPEORT_ALARM_PARAM_init(&alarm);
    alarm.Year = 2024;
    alarm.Month = 5;
    alarm.Day = 17;
    alarm.WDay = 5;
    alarm.Hour = 21;
    alarm.Minute = 4;
    alarm.Second = 39;
    alarm.Alarm_code = 38;
    alarm.Alarm_flag = 1;
    alarm.Alarm_level = 2;
    alarm.Alarm_absTime = 1715979879;
    alarm.Src = 1;
    alarm.ChannelId = 4;
    set(alarm.Alarm_data, "face at the gate");
    ALARM_REPORT_HUMANFACE_INFO& face = both->face;
    face.Age = 41;
    face.Gender = 1;
    face.IsGlasses = 1;
    face.AlgVer = 2;
    face.SerialNum = 70123;
    face.SimilarityThreshold = 80;
    face.DataLen = kFaceBlock;
    face.absTime = 1715979879;
    face.faceQualityScore = 0.875F;
    face.HsvAreaScore = 12.5F;
    face.BlurSMD = 3.0625F;
    set(face.uniqueIndex, "20240517210439-0004-70123");
    alarm.pExData = &face;
    Sample sample =
        sampleOf("alarm with a face", MessageId::kAlarm, "ALARM_REPORT_MESSAGE", "CMD_REPORT_ALARM", 0,
                 std::shared_ptr<ALARM_REPORT_CMD_RPEORT_ALARM_PARAM>(both, &alarm));
    sample.raw.assign(4, '\0');
    for (size_t i = 0; i < kFaceBlock; ++i)
        sample.raw.push_back(static_cast<char>(i * 7 % 251));
    return sample;
}

std::vector<Sample> allSamples()
{
    return {heartbeatSample(),  loginSample(), mediaSample(),
            channelsSample(64), eventSample(), alarmSample()};
}

} // namespace bench
