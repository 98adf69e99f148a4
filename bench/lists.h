// The elements and attributes of the messages that are measured, written down once for all peers.
//
// A name is a type, so that a peer over snprintf or fmt has each attribute's whole format as a literal, as in
// code that was written by hand. A side writes (kReads is false) or reads.
#ifndef ZEL_BENCH_LISTS_H
#define ZEL_BENCH_LISTS_H

#include <cstddef>
#include <cstdint>
#include <string_view>

#define NAMED(text)                                 \
    [] {                                            \
        struct Name                                 \
        {                                           \
            static constexpr std::string_view get() \
            {                                       \
                return text;                        \
            }                                       \
        };                                          \
        return Name();                              \
    }()

namespace bench {

// Entries of a list that are in use, of `size` at most.
inline size_t inUse(uint32_t count, size_t size)
{
    return count < size ? count : size;
}

template <class Side, class Header>
void headerList(Side& side, Header& header)
{
    side.text(NAMED("Msg_type"), header.Msg_type);
    side.text(NAMED("Msg_code"), header.Msg_code);
    side.text(NAMED("Msg_flag"), header.Msg_flag);
    side.textIfSet(NAMED("Msg_uuid"), header.Msg_uuid);
    side.textIfSet(NAMED("Msg_chn"), header.Msg_chn);
}

template <class Side, class Record>
void heartbeatList(Side& side, Record& record)
{
    side.textIfSet(NAMED("Ipcs_stat"), record.Ipcs_stat);
    side.textIfSet(NAMED("streamstat"), record.streamstat);
    side.textIfSet(NAMED("IpcAbility1"), record.IpcAbility1);
    side.textIfSet(NAMED("IpcProtoCol"), record.IpcProtoCol);
}

template <class Side, class Record>
void loginList(Side& side, Record& record)
{
    side.elementClosedAtQuote(NAMED("USER_AUTH_PARAM"), [&](auto& user) {
        user.text(NAMED("Username"), record.Username);
        user.text(NAMED("Password"), record.Password);
        user.number(NAMED("AuthMethod"), record.AuthMethod);
    });
    if constexpr (!Side::kReads) {
        if (record.VendorId[0])
            side.vendor(record.VendorId);
    }
    side.element(NAMED("ENCRYPT"), [&](auto& cipher) {
        cipher.text(NAMED("Capbility"), record.Capbility);
        cipher.number(NAMED("Version"), record.Version);
        if (Side::kReads || record.KeyTypeVer != -1)
            cipher.number(NAMED("KeyTypeVer"), record.KeyTypeVer);
    });
}

// --- 500, the media configuration
// ----------------------------------------------------------------------------------

template <class Side, class Record>
void captureList(Side& side, Record& record)
{
    side.number(NAMED("LightBoardBrigh"), record.LightBoardBrigh);
    side.number(NAMED("LightBoardMode"), record.LightBoardMode);
    side.number(NAMED("Brightness"), record.Brightness);
    side.number(NAMED("Contrast"), record.Contrast);
    side.number(NAMED("Saturation"), record.Saturation);
    side.number(NAMED("Sharpness"), record.Sharpness);
    side.number(NAMED("DayNight"), record.DayNight);
    side.number(NAMED("WhiteBalance"), record.WhiteBalance);
    side.number(NAMED("BackLight"), record.BackLight);
    side.number(NAMED("Switch2A"), record.Switch2A);
    side.number(NAMED("BinningSkip"), record.BinningSkip);
    side.number(NAMED("TVSystem"), record.TVSystem);
    side.number(NAMED("HFlip"), record.HFlip);
    side.number(NAMED("VFlip"), record.VFlip);
    side.number(NAMED("TNF"), record.TNF);
    side.number(NAMED("SNF"), record.SNF);
    side.number(NAMED("VSTAB"), record.VSTAB);
    side.number(NAMED("LDC"), record.LDC);
    side.number(NAMED("FD"), record.FD);
    side.number(NAMED("Rotation"), record.Rotation);
    side.number(NAMED("PreventOverexposure"), record.PreventOverexposure);
    side.number(NAMED("IrcutMode"), record.IrcutMode);
    side.number(NAMED("SoftPhotoresistanceSensitivity"), record.SoftPhotoresistanceSensitivity);
    side.number(NAMED("soft_pr_luma_day_to_night"), record.soft_pr_luma_day_to_night);
    side.number(NAMED("IrcutDelayValue"), record.IrcutDelayValue);
    side.number(NAMED("IrcutSensitivity"), record.IrcutSensitivity);
    side.time(NAMED("IrcutNightStartTime"), record.IrcutNightStartTime);
    side.time(NAMED("IrcutNightEndTime"), record.IrcutNightEndTime);
    side.text(NAMED("IrcutLumaList"), record.IrcutLumaList);
    side.number(NAMED("IrcutLuma"), record.IrcutLuma);
    side.number(NAMED("IrcutKeepColor"), record.IrcutKeepColor);
}

template <class Side, class Record>
void encodeList(Side& side, Record& record)
{
    side.rows(NAMED("EncodeConfig"), record.stEncodeConfig, [](auto& element, auto& row) {
        element.number(NAMED("Stream"), row.Stream);
        element.text(NAMED("Resolution"), row.Resolution);
        element.text(NAMED("EncodeFormat"), row.EncodeFormat);
        element.text(NAMED("BitRateControl"), row.BitRateControl);
        element.number(NAMED("Initquant"), row.Initquant);
        element.number(NAMED("BitRate"), row.BitRate);
        element.number(NAMED("FrameRate"), row.FrameRate);
    });
    side.element(NAMED("AdvanceEncodeConfig"), [&](auto& advanced) {
        advanced.number(NAMED("EncodeProfile"), record.EncodeProfile);
        advanced.number(NAMED("WDRMode"), record.WDRMode);
        advanced.time(NAMED("WDRStartTime"), record.WDRStartTime);
        advanced.time(NAMED("WDREndTime"), record.WDREndTime);
        advanced.number(NAMED("DisablePrivateData"), record.DisablePrivateData);
        advanced.number(NAMED("DefaultDPrivateData"), record.DefaultDPrivateData);
        advanced.number(NAMED("H265plus"), record.H265plus);
        advanced.number(NAMED("DefaultH265plus"), record.DefaultH265plus);
        advanced.number(NAMED("H265subplus"), record.H265subplus);
        advanced.number(NAMED("DefaultH265subplus"), record.DefaultH265subplus);
        advanced.number(NAMED("IvpLowBitrate"), record.IvpLowBitrate);
        advanced.number(NAMED("IvpAdvanceIspNew"), record.IvpAdvanceIspNew);
        advanced.number(NAMED("IvpAdvanceIsp"), record.IvpAdvanceIsp);
    });
}

template <class Side, class Record>
void advancedMediaList(Side& side, Record& record)
{
    side.element(NAMED("AEConfig"), [&](auto& element) {
        element.number(NAMED("AEStep"), record.AEStep);
        element.number(NAMED("AETolerance"), record.AETolerance);
    });
    side.element(NAMED("ExposureConfig"), [&](auto& element) {
        element.number(NAMED("ExposureMode"), record.ExposureMode);
        element.number(NAMED("SemiautoMode"), record.SemiautoMode);
        element.number(NAMED("ExposureTime"), record.ExposureTime);
        element.number(NAMED("DaySystemGain"), record.DaySystemGain);
        element.number(NAMED("NightSystemGain"), record.NightSystemGain);
    });
    side.element(NAMED("AWBConfig"), [&](auto& element) {
        element.number(NAMED("AWBMode"), record.AWBMode);
        element.number(NAMED("AWBRGain"), record.AWBRGain);
        element.number(NAMED("AWBBGain"), record.AWBBGain);
    });
    side.element(NAMED("DRCConfig"), [&](auto& element) {
        element.number(NAMED("Mode"), record.Mode);
        element.number(NAMED("StrenthTarget"), record.StrenthTarget);
        element.time(NAMED("DRCStartTime"), record.DRCStartTime);
        element.time(NAMED("DRCEndTime"), record.DRCEndTime);
    });
    side.element(NAMED("DenoiseConfig"), [&](auto& element) {
        element.number(NAMED("DenoiseMode"), record.DenoiseMode);
        element.number(NAMED("DenoiseDayStrenth"), record.DenoiseDayStrenth);
        element.number(NAMED("DenoiseNightStrenth"), record.DenoiseNightStrenth);
    });
    side.element(NAMED("ColorStyle"),
                 [&](auto& element) { element.number(NAMED("ColorStyleMode"), record.ColorStyleMode); });
    side.element(NAMED("LDCConfig"), [&](auto& element) {
        element.number(NAMED("enable"), record.LDCConfig_enable);
        element.number(NAMED("centorX"), record.centorX);
        element.number(NAMED("centorY"), record.centorY);
        element.number(NAMED("ratio"), record.ratio);
    });
    side.element(NAMED("StarlightConfig"),
                 [&](auto& element) { element.number(NAMED("enable"), record.StarlightConfig_enable); });
    side.element(NAMED("DefogConfig"), [&](auto& element) {
        element.number(NAMED("DefogMode"), record.DefogMode);
        element.number(NAMED("DefogValue"), record.DefogValue);
    });
    side.element(NAMED("DoubleLight"), [&](auto& element) {
        element.number(NAMED("WeightCoefficient"), record.WeightCoefficient);
    });
}

constexpr auto kMaskList = [](auto& side, auto& row) {
    side.number(NAMED("Area1PosX"), row.Area1PosX);
    side.number(NAMED("Area1PosY"), row.Area1PosY);
    side.number(NAMED("Area1Width"), row.Area1Width);
    side.number(NAMED("Area1Height"), row.Area1Height);
    side.number(NAMED("Area2PosX"), row.Area2PosX);
    side.number(NAMED("Area2PosY"), row.Area2PosY);
    side.number(NAMED("Area2Width"), row.Area2Width);
    side.number(NAMED("Area2Height"), row.Area2Height);
    side.number(NAMED("Area3PosX"), row.Area3PosX);
    side.number(NAMED("Area3PosY"), row.Area3PosY);
    side.number(NAMED("Area3Width"), row.Area3Width);
    side.number(NAMED("Area3Height"), row.Area3Height);
    side.number(NAMED("Area4PosX"), row.Area4PosX);
    side.number(NAMED("Area4PosY"), row.Area4PosY);
    side.number(NAMED("Area4Width"), row.Area4Width);
    side.number(NAMED("Area4Height"), row.Area4Height);
};

template <class Side, class Record>
void videoList(Side& side, Record& record)
{
    side.openElement(NAMED("LightConfig"), [&](auto& element) {
        element.number(NAMED("LightMode"), record.LightMode);
        element.number(NAMED("LightCtrl"), record.LightCtrl);
        element.number(NAMED("LightVal"), record.LightVal);
        element.triple(NAMED("LightModeRange"), record.LightModeRange);
    });
    side.element(NAMED("Capture"), [&](auto& element) { captureList(element, record); });
    side.container(NAMED("Encode"), [&](auto& encode) { encodeList(encode, record); });
    side.container(NAMED("AdvacedMediaConfig"), [&](auto& advanced) { advancedMediaList(advanced, record); });
    side.element(NAMED("JpegConfig"), [&](auto& element) {
        element.number(NAMED("Enable"), record.JpegConfig_Enable);
        element.number(NAMED("Stream"), record.Stream);
        element.number(NAMED("Quality"), record.Quality);
        element.number(NAMED("Framerate"), record.Framerate);
    });
    side.containerWithAttributes(
        NAMED("Overlay"),
        [&](auto& element) {
            element.number(NAMED("Enable"), record.Overlay_Enable);
            element.number(NAMED("Transparency"), record.Transparency);
        },
        [&](auto& overlay) {
            overlay.element(NAMED("TimeOverlay"), [&](auto& element) {
                element.number(NAMED("PosX"), record.TimeOverlay_PosX);
                element.number(NAMED("PosY"), record.TimeOverlay_PosY);
                element.text(NAMED("Format"), record.Format);
                element.number(NAMED("WeekDisplayEn"), record.WeekDisplayEn);
            });
            overlay.element(NAMED("TitleOverlay"), [&](auto& element) {
                element.number(NAMED("PosX"), record.TitleOverlay_PosX);
                element.number(NAMED("PosY"), record.TitleOverlay_PosY);
                element.text(NAMED("Title"), record.Title);
            });
        });
    side.container(NAMED("Mask"), [&](auto& mask) {
        mask.element(NAMED("MainStream"), [&](auto& element) { kMaskList(element, record.stMaskRows[0]); });
        mask.element(NAMED("SubStream"), [&](auto& element) { kMaskList(element, record.stMaskRows[1]); });
    });
}

template <class Side, class Record>
void mediaList(Side& side, Record& record)
{
    side.container(NAMED("MediaConfig"), [&](auto& media) {
        media.container(NAMED("Video"), [&](auto& video) { videoList(video, record); });
        media.container(NAMED("Audio"), [&](auto& audio) {
            audio.element(NAMED("Capture"),
                          [&](auto& element) { element.number(NAMED("Volume"), record.Capture_Volume); });
            audio.element(NAMED("Encode"), [&](auto& element) {
                element.number(NAMED("Enable"), record.Encode_Enable);
                element.number(NAMED("SampleRate"), record.SampleRate);
                element.text(NAMED("EncodeType"), record.EncodeType);
                element.number(NAMED("BitRate"), record.BitRate);
            });
            audio.element(NAMED("Play"),
                          [&](auto& element) { element.number(NAMED("Volume"), record.Play_Volume); });
        });
    });
}

// --- 3803, the channel list
// ------------------------------------------------------------------------------------------

// All rows are in use and each has all of its attributes.
constexpr auto kChannelList = [](auto& side, auto& row) {
    side.number(NAMED("ChannelId"), row.ChannelId);
    side.text(NAMED("IpAddr"), row.IpAddr);
    side.number(NAMED("DevMode"), row.DevMode);
    side.text(NAMED("Protocol"), row.Protocol);
    side.text(NAMED("ChannnelName"), row.ChannnelName);
    side.number(NAMED("Status"), row.Status);
    side.numberWithBlank(NAMED("CtrlPort"), row.CtrlPort);
    side.text(NAMED("Username"), row.Username);
    side.text(NAMED("Password"), row.Password);
    side.text(NAMED("RtspDomain"), row.RtspDomain);
    side.text(NAMED("RtspMainResPath"), row.RtspMainResPath);
    side.number(NAMED("RtspMainResPort"), row.RtspMainResPort);
    side.text(NAMED("RtspSubResPath"), row.RtspSubResPath);
    side.number(NAMED("RtspSubResPort"), row.RtspSubResPort);
    side.numberIfSet(NAMED("DevSubType"), row.DevSubType);
    side.numberIfSet(NAMED("Feature"), row.Feature);
};

template <class Side, class Record>
void channelsList(Side& side, Record& record)
{
    if constexpr (Side::kReads) {
        // The two numbers are bare text in the body, which the reading side looks for among its attributes.
        side.number(NAMED("ChannelCount"), record.ChannelCount);
        side.number(NAMED("EndPackage"), record.EndPackage);
        side.rows(NAMED("ChannelInfo"), record.stChannelInfo, kChannelList);
    } else {
        side.bareNumber(NAMED("ChannelCount"), record.ChannelCount);
        for (int i = 0; i < record.ChannelCount; ++i)
            side.element(NAMED("ChannelInfo"),
                         [&](auto& element) { kChannelList(element, record.stChannelInfo[i]); });
    }
}

// --- 1402, the intelligent event
// -------------------------------------------------------------------------------------

template <class Side, class Rule>
void ruleList(Side& side, Rule& rule)
{
    side.number(NAMED("Enable"), rule.Enable);
    side.number(NAMED("DefEnable"), rule.DefEnable);
    side.number(NAMED("DetectionAttr"), rule.DetectionAttr);
    side.number(NAMED("DetectionSens"), rule.DetectionSens);
    side.number(NAMED("DefDetectionSens"), rule.DefDetectionSens);
    side.range(NAMED("DefDetectionSensRange"), rule.DefDetectionSensRange);
    side.number(NAMED("ShowAlarmCount"), rule.ShowAlarmCount);
    side.number(NAMED("ShowAlarmLine"), rule.ShowAlarmLine);
    side.resolution(NAMED("VideoResolution"), rule.VideoResolution);
    side.number(NAMED("MaxCoordinateCapability"), rule.MaxCoordinateCapability);
    side.number(NAMED("LineCoordinatesNum"), rule.LineCoordinatesNum);
    side.coordinates(NAMED("LineCoordinates"), rule.LineCoordinates, inUse(rule.LineCoordinatesNum, 8));
    side.number(NAMED("LightAlarmEnable"), rule.LightAlarmEnable);
    side.number(NAMED("DefLightAlarmEnable"), rule.DefLightAlarmEnable);
    side.number(NAMED("Lightduration"), rule.Lightduration);
    side.number(NAMED("DefLightduration"), rule.DefLightduration);
    side.range(NAMED("DefLightdurationRange"), rule.DefLightdurationRange);
    side.number(NAMED("LightScheduleMode"), rule.LightScheduleMode);
    side.number(NAMED("DefLightScheduleMode"), rule.DefLightScheduleMode);
    side.number(NAMED("EmailAlarmEnable"), rule.EmailAlarmEnable);
    side.number(NAMED("Emailduration"), rule.Emailduration);
    side.range(NAMED("DefEmaildurationRange"), rule.DefEmaildurationRange);
    side.number(NAMED("EmailScheduleMode"), rule.EmailScheduleMode);
    side.number(NAMED("AudioAlarmEnable"), rule.AudioAlarmEnable);
    side.number(NAMED("DefAudioAlarmEnable"), rule.DefAudioAlarmEnable);
    side.number(NAMED("AudioAlarmTimes"), rule.AudioAlarmTimes);
    side.number(NAMED("DefAudioAlarmTimes"), rule.DefAudioAlarmTimes);
    side.range(NAMED("DefAudioAlarmTimesRange"), rule.DefAudioAlarmTimesRange);
    side.number(NAMED("AudioScheduleMode"), rule.AudioScheduleMode);
    side.number(NAMED("DefAudioScheduleMode"), rule.DefAudioScheduleMode);
    side.time(NAMED("LightAudioAlarmStartTime"), rule.LightAudioAlarmStartTime);
    side.time(NAMED("LightAudioAlarmEndTime"), rule.LightAudioAlarmEndTime);
    if constexpr (Side::kReads)
        side.number(NAMED("AlarmTime"), rule.ucAlarmTimeIn);
    else
        side.number(NAMED("AlarmTime"), rule.AlarmTime);
    side.number(NAMED("TrackEnable"), rule.TrackEnable);
    side.number(NAMED("DefTrackEnable"), rule.DefTrackEnable);
    if (Side::kReads || rule.CrowdFlowStatEnable != 255) {
        side.number(NAMED("CrowdFlowStatEnable"), rule.CrowdFlowStatEnable);
        side.number(NAMED("DefCrowdFlowStatEnable"), rule.DefCrowdFlowStatEnable);
    }
    if (Side::kReads || rule.LightAlarmPeriodNum != 255) {
        side.number(NAMED("LightAlarmPeriodNum"), rule.LightAlarmPeriodNum);
        side.periods(NAMED("LightAlarmPeriod"), rule.LightAlarmPeriod, inUse(rule.LightAlarmPeriodNum, 4));
    }
    if (Side::kReads || rule.AudioAlarmPeriodNum != 255) {
        side.number(NAMED("AudioAlarmPeriodNum"), rule.AudioAlarmPeriodNum);
        side.periods(NAMED("AudioAlarmPeriod"), rule.AudioAlarmPeriod, inUse(rule.AudioAlarmPeriodNum, 4));
    }
    if (Side::kReads || rule.EmailAlarmPeriodNum != 255) {
        side.number(NAMED("EmailAlarmPeriodNum"), rule.EmailAlarmPeriodNum);
        side.periods(NAMED("EmailAlarmPeriod"), rule.EmailAlarmPeriod, inUse(rule.EmailAlarmPeriodNum, 4));
    }
}

template <class Side, class Record>
void eventList(Side& side, Record& record)
{
    side.container(NAMED("SmartConfig"), [&](auto& rules) {
        rules.element(NAMED("RegionDetection"), [&](auto& rule) { ruleList(rule, record.stRegion); });
        rules.element(NAMED("CrossBoundaryDetection"),
                      [&](auto& rule) { ruleList(rule, record.stCrossBoundary); });
    });
}

// --- The alarm with a face
// -------------------------------------------------------------------------------------------

template <class Side, class Face>
void faceList(Side& side, Face& face)
{
    side.number(NAMED("Age"), face.Age);
    side.number(NAMED("Gender"), face.Gender);
    side.number(NAMED("IsGlasses"), face.IsGlasses);
    side.number(NAMED("IsMask"), face.IsMask);
    side.number(NAMED("IsHat"), face.IsHat);
    side.number(NAMED("DataLen"), face.DataLen);
    side.number(NAMED("SimilarityThreshold"), face.SimilarityThreshold);
    side.number(NAMED("SerialNum"), face.SerialNum);
    side.number(NAMED("AlgVer"), face.AlgVer);
    side.text(NAMED("uniqueIndex"), face.uniqueIndex);
    side.number(NAMED("absTime"), face.absTime);
    side.real(NAMED("faceQualityScore"), face.faceQualityScore);
    side.real(NAMED("HsvAreaScore"), face.HsvAreaScore);
    side.real(NAMED("BlurSMD"), face.BlurSMD);
    side.number(NAMED("ErrorCode"), face.ErrorCode);
}

// face() gives the extension: the sender's, or the place for it in a receiver's block.
template <class Side, class Record, class Face>
void alarmList(Side& side, Record& record, Face face)
{
    side.container(NAMED("ALARM_REPORT_PARAM"), [&](auto& param) {
        if (Side::kReads || record.Src != -1)
            param.element(NAMED("SRC_INFO"), [&](auto& element) {
                element.number(NAMED("Src"), record.Src);
                element.number(NAMED("ChannelId"), record.ChannelId);
            });
        param.container(NAMED("ALARM_ITEM"), [&](auto& item) {
            item.element(NAMED("ALARM_INFO"), [&](auto& element) {
                element.number(NAMED("Alarm_code"), record.Alarm_code);
                element.number(NAMED("Alarm_flag"), record.Alarm_flag);
                element.number(NAMED("Alarm_level"), record.Alarm_level);
                element.text(NAMED("Alarm_data"), record.Alarm_data);
                element.numberIfSet(NAMED("Alarm_absTime"), record.Alarm_absTime);
            });
            if (Side::kReads || record.Year != -1)
                item.element(NAMED("ALARM_TIME"), [&](auto& element) {
                    element.number(NAMED("Year"), record.Year);
                    element.number(NAMED("Month"), record.Month);
                    element.number(NAMED("Day"), record.Day);
                    element.number(NAMED("WDay"), record.WDay);
                    element.number(NAMED("Hour"), record.Hour);
                    element.number(NAMED("Minute"), record.Minute);
                    element.number(NAMED("Second"), record.Second);
                });
            item.element(NAMED("HumanFaceInfo"), [&](auto& element) { faceList(element, face()); });
        });
    });
}

} // namespace bench

#endif
