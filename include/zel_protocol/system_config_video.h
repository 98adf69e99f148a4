/**
 * Configuration of a camera's video: codes 501 and 521 of the configuration family.
 */
#ifndef ZEL_PROTOCOL_SYSTEM_CONFIG_VIDEO_H
#define ZEL_PROTOCOL_SYSTEM_CONFIG_VIDEO_H

#include "zel_protocol/core.h"
#include "zel_protocol/system_config_media.h"

#ifdef __cplusplus
extern "C" {
#endif

/**
 * 501: the video configuration of a channel.
 *
 * The request carries ChannelId alone, and no body when it is -1; ChannelId is all that is read of one. A
 * response has one of two forms:
 *
 * - with iBlankForm -1 it is written whole, absent values as 255 and -1;
 * - otherwise capture, encoders and snapshots go out with empty values, whatever the record holds, masks and
 *   advanced settings not at all, and only ChannelId and the overlays as they are.
 *
 * The blank form names the night times IrcutNightStartTime and IrcutNightEndTime, which isn't read. Encoders
 * beyond the second are passed over. The mask row of the sub stream is read only if it stands behind that of
 * the main stream.
 */
typedef struct SYSTEM_CONFIG_GET_501_PARAM
{
    uint8_t EncodeProfile;       /**< profile of the video coding */
    uint8_t DisablePrivateData;  /**< private data in the stream: current value */
    uint8_t DefaultDPrivateData; /**< and the device's default */
    uint8_t WDRMode;             /**< wide dynamic range */
    uint8_t DayNight;            /**< day, night or automatic */
    uint8_t WhiteBalance;
    uint8_t Switch2A;    /**< automatic exposure and white balance */
    uint8_t BinningSkip; /**< how the sensor reduces its resolution */
    uint8_t TVSystem;    /**< PAL or NTSC */
    uint8_t HFlip;       /**< 0/1: left and right exchanged */
    uint8_t VFlip;       /**< 0/1: upside down */
    uint8_t TNF;         /**< temporal noise filter */
    uint8_t SNF;         /**< spatial noise filter */
    uint8_t VSTAB;       /**< image stabiliser */
    uint8_t LDC;         /**< lens distortion correction */
    uint8_t FD;          /**< face detection */
    uint8_t Rotation;
    uint8_t PreventOverexposure; /**< 0/1 */
    uint8_t IrcutMode;           /**< mode of the infrared cut filter */
    uint8_t IrcutDelayValue;     /**< delay of the filter's move */
    uint8_t IrcutSensitivity;    /**< of the filter's light sensor */
    uint8_t IrcutLuma;           /**< brightness at which the filter moves */
    uint8_t IrcutKeepColor;      /**< 0/1: colour at night too */
    uint8_t ExposureMode;
    uint8_t SemiautoMode;
    uint8_t ExposureTime;
    uint8_t DaySystemGain;
    uint8_t NightSystemGain;
    uint8_t AWBMode;                        /**< automatic white balance */
    uint8_t AWBRGain;                       /**< gain of red */
    uint8_t AWBBGain;                       /**< gain of blue */
    uint8_t Mode;                           /**< of DRCConfig: dynamic range compression */
    uint8_t StrenthTarget;                  /**< of DRCConfig */
    uint8_t DenoiseMode;                    /**< of the noise filter, as the next two */
    uint8_t DenoiseDayStrenth;              /**< strength by day */
    uint8_t DenoiseNightStrenth;            /**< strength at night */
    uint8_t ColorStyleMode;                 /**< of ColorStyle */
    uint8_t LDCConfig_enable;               /**< 0/1: lens distortion correction */
    uint8_t centorX;                        /**< of LDCConfig: its centre */
    uint8_t centorY;                        /**< of LDCConfig: its centre */
    uint8_t ratio;                          /**< of LDCConfig: its strength */
    uint8_t StarlightConfig_enable;         /**< 0/1: mode for very little light */
    uint8_t WeightCoefficient;              /**< of DoubleLight: share of the two kinds of light */
    uint8_t JpegConfig_Enable;              /**< 0/1: snapshots, as the next three */
    uint8_t Stream;                         /**< of JpegConfig: the stream that they are taken from */
    uint8_t Quality;                        /**< of JpegConfig */
    uint8_t Framerate;                      /**< of JpegConfig */
    uint8_t Overlay_Enable;                 /**< 0/1: text in the picture */
    uint8_t Transparency;                   /**< of Overlay */
    uint8_t TimeOverlay_PosX;               /**< place of the time in the picture */
    uint8_t TimeOverlay_PosY;               /**< place of the time in the picture */
    uint8_t TitleOverlay_PosX;              /**< place of the title in the picture */
    uint8_t TitleOverlay_PosY;              /**< place of the title in the picture */
    uint8_t LightBoardBrigh;                /**< brightness of the light board */
    uint8_t LightBoardMode;                 /**< mode of the light board */
    uint8_t SoftPhotoresistanceSensitivity; /**< of a light sensor made of the picture's brightness */
    uint8_t soft_pr_luma_day_to_night;      /**< brightness at which that sensor takes it for night */
    uint8_t WeekDisplayEn;                  /**< 0/1: the day of the week beside the time */
    uint8_t IvpAdvanceIsp;                  /**< 0/1: better picture processing */
    uint8_t IvpLowBitrate;                  /**< 0/1: lower bit rate */
    uint8_t H265plus;                       /**< 0/1: main stream, current value */
    uint8_t DefaultH265plus;                /**< and the device's default */
    uint8_t H265subplus;                    /**< 0/1: sub stream, current value */
    uint8_t DefaultH265subplus;             /**< and the device's default */
    uint8_t IvpAdvanceIspNew;               /**< level of the better picture processing */
    /** -1: a response is written whole. Not on the wire: stays -1 in an analysed record. */
    int32_t iBlankForm;
    int32_t AEStep;      /**< step of the automatic exposure */
    int32_t AETolerance; /**< its tolerance */
    int32_t Brightness;  /**< of the picture, as the next three */
    int32_t Contrast;
    int32_t Saturation;
    int32_t Sharpness;
    int32_t BackLight; /**< compensation of light from behind */
    int32_t ChannelId; /**< also ChanID of Overlay, which is left out when -1 and wins on the way in */
    /* Hours, minutes, seconds. */
    int32_t WDRStartTime[3];
    int32_t WDREndTime[3];
    int32_t auiIRcutNightStartTime[3]; /**< when the infrared cut filter goes to night */
    int32_t auiIRcutNightEndTime[3];   /**< and back */
    int32_t DRCStartTime[3];           /**< written without leading zeros, as the next */
    int32_t DRCEndTime[3];
    char Format[32];         /**< of the time overlay */
    char Title[256];         /**< of the title overlay */
    char DefaultTitle[256];  /**< the device's default of the title */
    char IrcutLumaList[128]; /**< the device's values of IrcutLuma; not looked into */
    SYSTEM_CONFIG_ENCODE_ROW stEncodeConfig[2];
    SYSTEM_CONFIG_MASK_ROW stMaskRows[2]; /**< main and sub stream */
} SYSTEM_CONFIG_GET_501_PARAM;

/* 521: sets what 501 gets. Request only, always written whole, ChannelId neither written nor read. */
typedef SYSTEM_CONFIG_GET_501_PARAM SYSTEM_CONFIG_SET_521_PARAM;

ZEL_API int SYSTEM_CONFIG_GET_501_PARAM_init(SYSTEM_CONFIG_GET_501_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_521_PARAM_init(SYSTEM_CONFIG_SET_521_PARAM* param);

/* Each analyses a text into the record of its code. */
ZEL_API int SystemConfig_getMediaVideoconfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setMediaVideoconfig_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
