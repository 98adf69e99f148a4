/**
 * Configuration of a camera's media in slices: codes 523, 524, 525 and 542 of the configuration family, all
 * of them requests. A slice changes only what is set: most absent values are left out.
 */
#ifndef ZEL_PROTOCOL_SYSTEM_CONFIG_ENCODE_H
#define ZEL_PROTOCOL_SYSTEM_CONFIG_ENCODE_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/**
 * A video encoder. One whose Stream is -1 isn't written, any other is written whole; on the way in the row is
 * its place in the message.
 */
typedef struct SYSTEM_CONFIG_STREAM_ROW
{
    int32_t Stream;    /**< number of the stream; -1: a free row */
    int32_t Initquant; /**< quantiser to start from */
    int32_t BitRate;
    int32_t FrameRate; /**< frames per second */
    int32_t ImageQuality;
    int32_t MotionLevel;
    int32_t NoiseLevel;
    int32_t Mode;
    char Resolution[32];
    char EncodeFormat[16];
    char BitRateControl[16]; /**< constant or variable */
} SYSTEM_CONFIG_STREAM_ROW;

/** 523: sets the video encoders. Absent values of the record itself are left out. */
typedef struct SYSTEM_CONFIG_SET_523_PARAM
{
    uint8_t EncodeProfile;      /**< profile of the video coding */
    uint8_t WDRMode;            /**< wide dynamic range */
    uint8_t DisablePrivateData; /**< 0/1: no private data in the stream */
    uint8_t H265plus;           /**< 0/1: main stream */
    uint8_t H265subplus;        /**< 0/1: sub stream */
    uint8_t IvpAdvanceIsp;      /**< 0/1: better picture processing */
    uint8_t IvpLowBitrate;      /**< 0/1: lower bit rate */
    uint8_t IvpAdvanceIspNew;   /**< level of the better picture processing */
    int32_t WDRStartTime[3];    /**< hours, minutes, seconds; written with a WDRMode, even if absent */
    int32_t WDREndTime[3];      /**< the same */
    SYSTEM_CONFIG_STREAM_ROW stEncodeConfig[2];
} SYSTEM_CONFIG_SET_523_PARAM;

/**
 * 524: sets the image capture and its advanced processing.
 *
 * IrcutMode and the two night times are always written, the rest of the capture is left out when absent. An
 * advanced block is written whole when its first field isn't absent, else not at all; the fields below name
 * their block. The night times go out as IrcutNightStartTime and IrcutNightEndTime but are read as
 * auiIRcutNightStartTime and auiIRcutNightEndTime: what is written of them isn't read back.
 */
typedef struct SYSTEM_CONFIG_SET_524_PARAM
{
    uint8_t DayNight; /**< day, night or automatic */
    uint8_t WhiteBalance;
    uint8_t Switch2A;    /**< automatic exposure and white balance */
    uint8_t BinningSkip; /**< how the sensor reduces its resolution */
    uint8_t TVSystem;    /**< PAL or NTSC */
    uint8_t HFlip;       /**< 0/1: left and right exchanged */
    uint8_t VFlip;       /**< 0/1: upside down */
    uint8_t XOffset;     /**< of the picture on the sensor */
    uint8_t YOffset;     /**< of the picture on the sensor */
    uint8_t Rotation;
    uint8_t PreventOverexposure;    /**< 0/1 */
    uint8_t IrcutMode;              /**< mode of the infrared cut filter; always written */
    uint8_t SoftResDelayValue;      /**< delay of a light sensor made of the picture's brightness */
    uint8_t IrcutSensitivity;       /**< of the filter's light sensor */
    uint8_t IrcutLuma;              /**< brightness at which the filter moves */
    uint8_t IrcutKeepColor;         /**< 0/1: colour at night too */
    uint8_t ExposureMode;           /**< ExposureConfig: first */
    uint8_t SemiautoMode;           /**< ExposureConfig */
    uint8_t ExposureTime;           /**< ExposureConfig */
    uint8_t DaySystemGain;          /**< ExposureConfig */
    uint8_t NightSystemGain;        /**< ExposureConfig */
    uint8_t AWBMode;                /**< AWBConfig: first; automatic white balance */
    uint8_t AWBRGain;               /**< AWBConfig: gain of red */
    uint8_t AWBBGain;               /**< AWBConfig: gain of blue */
    uint8_t Mode;                   /**< DRCConfig: first; dynamic range compression */
    uint8_t StrenthTarget;          /**< DRCConfig */
    uint8_t DenoiseMode;            /**< DenoiseConfig: first */
    uint8_t DenoiseDayStrenth;      /**< DenoiseConfig: strength by day */
    uint8_t DenoiseNightStrenth;    /**< DenoiseConfig: strength at night */
    uint8_t ColorStyleMode;         /**< ColorStyle: first and only */
    uint8_t LDCConfig_enable;       /**< LDCConfig: first; 0/1, lens distortion correction */
    uint8_t centorX;                /**< LDCConfig: its centre */
    uint8_t centorY;                /**< LDCConfig: its centre */
    uint8_t ratio;                  /**< LDCConfig: its strength */
    uint8_t StarlightConfig_enable; /**< StarlightConfig: first and only; 0/1, mode for very little light */
    uint8_t WeightCoefficient;      /**< DoubleLight: first and only; share of the two kinds of light */
    uint8_t IrcutDelayValue;        /**< delay of the filter's move */
    uint8_t soft_pr_luma_day_to_night;      /**< brightness that the picture's light sensor takes for night */
    uint8_t SoftPhotoresistanceSensitivity; /**< of the picture's light sensor */
    uint8_t DefogMode;                      /**< DefogConfig: first */
    uint8_t DefogValue;                     /**< DefogConfig: strength */
    int32_t AEStep;                         /**< AEConfig: first; step of the automatic exposure */
    int32_t AETolerance;                    /**< AEConfig: its tolerance */
    int32_t Brightness;                     /**< of the picture, as the next three */
    int32_t Contrast;
    int32_t Saturation;
    int32_t Sharpness;
    int32_t BackLight; /**< compensation of light from behind */
    /* Hours, minutes, seconds. */
    int32_t IrcutNightStartTime[3]; /**< when the infrared cut filter goes to night; always written */
    int32_t IrcutNightEndTime[3];   /**< and back; always written */
    int32_t DRCStartTime[3];        /**< DRCConfig; written without leading zeros */
    int32_t DRCEndTime[3];          /**< DRCConfig; written without leading zeros */
} SYSTEM_CONFIG_SET_524_PARAM;

/** 525: sets the texts in the picture. Absent values are written but where a field says otherwise. */
typedef struct SYSTEM_CONFIG_SET_525_PARAM
{
    uint8_t Enable; /**< 0/1 */
    uint8_t Transparency;
    uint8_t TimeOverlay_PosX;  /**< place of the time in the picture */
    uint8_t TimeOverlay_PosY;  /**< place of the time in the picture */
    uint8_t TitleOverlay_PosX; /**< place of the title in the picture */
    uint8_t TitleOverlay_PosY; /**< place of the title in the picture */
    uint8_t WeekDisplayEn;     /**< 0/1: the day of the week beside the time; left out when absent */
    int32_t ChanID;            /**< the channel; left out when absent */
    char Format[32];           /**< of the time */
    char Title[256];
} SYSTEM_CONFIG_SET_525_PARAM;

/** 542: switches the dropping of frames. */
typedef struct SYSTEM_CONFIG_SET_542_PARAM
{
    char Switch[16]; /**< a text, not a number; written even if empty */
} SYSTEM_CONFIG_SET_542_PARAM;

ZEL_API int SYSTEM_CONFIG_SET_523_PARAM_init(SYSTEM_CONFIG_SET_523_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_524_PARAM_init(SYSTEM_CONFIG_SET_524_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_525_PARAM_init(SYSTEM_CONFIG_SET_525_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_542_PARAM_init(SYSTEM_CONFIG_SET_542_PARAM* param);

/* Each analyses a text into the record of its code. */
ZEL_API int SystemConfig_setMediaVideoencode_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setMediaCapture_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setMediaVideoOsd_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setMediaDrop_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
