/**
 * Configuration of a camera's media: codes 500 and 520 of the configuration family.
 */
#ifndef ZEL_PROTOCOL_SYSTEM_CONFIG_MEDIA_H
#define ZEL_PROTOCOL_SYSTEM_CONFIG_MEDIA_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/** A video encoder. Its row is its place in the message. */
typedef struct SYSTEM_CONFIG_ENCODE_ROW
{
    int32_t Stream;
    int32_t Initquant;
    int32_t BitRate;
    int32_t FrameRate;
    char Resolution[32];
    char EncodeFormat[16];
    char BitRateControl[16];
} SYSTEM_CONFIG_ENCODE_ROW;

/** Four privacy masks of a stream. */
typedef struct SYSTEM_CONFIG_MASK_ROW
{
    uint8_t Area1PosX;
    uint8_t Area1PosY;
    uint8_t Area2PosX;
    uint8_t Area2PosY;
    uint8_t Area3PosX;
    uint8_t Area3PosY;
    uint8_t Area4PosX;
    uint8_t Area4PosY;
    uint32_t Area1Width;
    uint32_t Area1Height;
    uint32_t Area2Width;
    uint32_t Area2Height;
    uint32_t Area3Width;
    uint32_t Area3Height;
    uint32_t Area4Width;
    uint32_t Area4Height;
} SYSTEM_CONFIG_MASK_ROW;

/**
 * 500: the whole media configuration. Response only; it is written whole, absent values as 255 and -1.
 * The mask row of the sub stream is read only if it stands behind that of the main stream.
 */
typedef struct SYSTEM_CONFIG_GET_500_PARAM
{
    uint8_t EncodeProfile;
    uint8_t DisablePrivateData;  /**< private data in the stream: current value */
    uint8_t DefaultDPrivateData; /**< and the device's default */
    uint8_t WDRMode;
    uint8_t IvpAdvanceIsp;
    uint8_t IvpLowBitrate;
    uint8_t H265plus;           /**< main stream: current value */
    uint8_t DefaultH265plus;    /**< and the device's default */
    uint8_t H265subplus;        /**< sub stream: current value */
    uint8_t DefaultH265subplus; /**< and the device's default */
    uint8_t LightMode;
    uint8_t LightCtrl;
    uint8_t LightVal;
    uint8_t LightBoardBrigh;
    uint8_t LightBoardMode;
    uint8_t DayNight;
    uint8_t WhiteBalance;
    uint8_t Switch2A;
    uint8_t BinningSkip;
    uint8_t TVSystem;
    uint8_t HFlip;
    uint8_t VFlip;
    uint8_t TNF;
    uint8_t SNF;
    uint8_t VSTAB;
    uint8_t LDC;
    uint8_t FD;
    uint8_t Rotation;
    uint8_t PreventOverexposure;
    uint8_t IrcutMode;
    uint8_t SoftPhotoresistanceSensitivity;
    uint8_t soft_pr_luma_day_to_night;
    uint8_t IrcutDelayValue;
    uint8_t IrcutSensitivity;
    uint8_t IrcutLuma;
    uint8_t IrcutKeepColor;
    uint8_t TitleOverlay_PosX;
    uint8_t TitleOverlay_PosY;
    uint8_t ExposureMode;
    uint8_t SemiautoMode;
    uint8_t ExposureTime;
    uint8_t DaySystemGain;
    uint8_t NightSystemGain;
    uint8_t AWBMode;
    uint8_t AWBRGain;
    uint8_t AWBBGain;
    uint8_t Mode;          /**< of DRCConfig */
    uint8_t StrenthTarget; /**< of DRCConfig */
    uint8_t DenoiseMode;
    uint8_t DenoiseDayStrenth;
    uint8_t DenoiseNightStrenth;
    uint8_t ColorStyleMode;
    uint8_t LDCConfig_enable;
    uint8_t centorX;
    uint8_t centorY;
    uint8_t ratio; /**< of LDCConfig, as the centre */
    uint8_t StarlightConfig_enable;
    uint8_t DefogMode;
    uint8_t DefogValue;
    uint8_t WeightCoefficient; /**< of DoubleLight */
    uint8_t JpegConfig_Enable;
    uint8_t Stream;    /**< of JpegConfig */
    uint8_t Quality;   /**< of JpegConfig */
    uint8_t Framerate; /**< of JpegConfig */
    uint8_t Overlay_Enable;
    uint8_t Transparency;
    uint8_t TimeOverlay_PosX;
    uint8_t TimeOverlay_PosY;
    uint8_t WeekDisplayEn;
    int32_t AEStep;
    int32_t BackLight;
    int32_t AETolerance;
    int32_t Brightness;
    int32_t Contrast;
    int32_t Saturation;
    int32_t Sharpness;
    int32_t IvpAdvanceIspNew;
    int32_t LightModeRange[3]; /**< written by 500 only, read by both */
    /* Hours, minutes, seconds. */
    int32_t DRCStartTime[3];
    int32_t DRCEndTime[3];
    int32_t WDRStartTime[3];
    int32_t WDREndTime[3];
    int32_t IrcutNightStartTime[3]; /**< 520 reads this and the next under names that it doesn't write */
    int32_t IrcutNightEndTime[3];
    char IrcutLumaList[128];
    char Format[32]; /**< of the time overlay */
    char Title[256];
    SYSTEM_CONFIG_ENCODE_ROW stEncodeConfig[2];
    SYSTEM_CONFIG_MASK_ROW stMaskRows[2]; /**< main and sub stream */
    uint8_t Encode_Enable;                /**< of the audio, as the rest */
    uint8_t Capture_Volume;
    uint8_t Play_Volume;
    uint32_t SampleRate;
    uint32_t BitRate;
    char EncodeType[32];
} SYSTEM_CONFIG_GET_500_PARAM;

/* 520: sets what 500 gets. Request only. */
typedef SYSTEM_CONFIG_GET_500_PARAM SYSTEM_CONFIG_SET_520_PARAM;

ZEL_API int SYSTEM_CONFIG_GET_500_PARAM_init(SYSTEM_CONFIG_GET_500_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_520_PARAM_init(SYSTEM_CONFIG_SET_520_PARAM* param);

/* Each analyses a text into the record of its code. */
ZEL_API int SystemConfig_getMediaconfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setMediaconfig_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
