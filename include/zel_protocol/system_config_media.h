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
    int32_t Stream;    /**< its number, which may differ from the row */
    int32_t Initquant; /**< quantiser to start with */
    int32_t BitRate;
    int32_t FrameRate;       /**< frames a second */
    char Resolution[32];     /**< width and height as a text */
    char EncodeFormat[16];   /**< name of the coding */
    char BitRateControl[16]; /**< name of the method */
} SYSTEM_CONFIG_ENCODE_ROW;

/** Four privacy masks of a stream. */
typedef struct SYSTEM_CONFIG_MASK_ROW
{
    uint8_t Area1PosX; /**< place of the first on the picture */
    uint8_t Area1PosY;
    uint8_t Area2PosX;
    uint8_t Area2PosY;
    uint8_t Area3PosX;
    uint8_t Area3PosY;
    uint8_t Area4PosX;
    uint8_t Area4PosY;
    uint32_t Area1Width; /**< size of the first */
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
    uint8_t EncodeProfile;       /**< profile of the coding */
    uint8_t DisablePrivateData;  /**< private data in the stream: current value */
    uint8_t DefaultDPrivateData; /**< and the device's default */
    uint8_t WDRMode;             /**< wide dynamic range; its hours are below */
    uint8_t IvpAdvanceIsp;
    uint8_t IvpLowBitrate;
    uint8_t H265plus;           /**< main stream: current value */
    uint8_t DefaultH265plus;    /**< and the device's default */
    uint8_t H265subplus;        /**< sub stream: current value */
    uint8_t DefaultH265subplus; /**< and the device's default */
    uint8_t LightMode;          /**< of LightConfig, as the next two */
    uint8_t LightCtrl;
    uint8_t LightVal;
    uint8_t LightBoardBrigh; /**< brightness of the light board */
    uint8_t LightBoardMode;  /**< of the light board */
    uint8_t DayNight;        /**< colour or black and white */
    uint8_t WhiteBalance;
    uint8_t Switch2A;
    uint8_t BinningSkip;
    uint8_t TVSystem;
    uint8_t HFlip; /**< switch: the picture is mirrored */
    uint8_t VFlip; /**< switch: the picture is upside down */
    uint8_t TNF;   /**< noise filter over time */
    uint8_t SNF;   /**< noise filter over the picture */
    uint8_t VSTAB; /**< steadying of the picture */
    uint8_t LDC;   /**< correction of the lens */
    uint8_t FD;    /**< detection of faces */
    uint8_t Rotation;
    uint8_t PreventOverexposure;
    uint8_t IrcutMode;                      /**< of the infrared filter, as all of Ircut... */
    uint8_t SoftPhotoresistanceSensitivity; /**< of the detection of day and night by the picture */
    uint8_t soft_pr_luma_day_to_night;      /**< brightness at which night begins */
    uint8_t IrcutDelayValue;
    uint8_t IrcutSensitivity;
    uint8_t IrcutLuma;
    uint8_t IrcutKeepColor;
    uint8_t TitleOverlay_PosX; /**< place on the picture */
    uint8_t TitleOverlay_PosY; /**< place on the picture */
    uint8_t ExposureMode;      /**< of ExposureConfig, as the next four */
    uint8_t SemiautoMode;
    uint8_t ExposureTime;
    uint8_t DaySystemGain;
    uint8_t NightSystemGain;
    uint8_t AWBMode;       /**< of the white balance */
    uint8_t AWBRGain;      /**< red */
    uint8_t AWBBGain;      /**< blue */
    uint8_t Mode;          /**< of DRCConfig */
    uint8_t StrenthTarget; /**< of DRCConfig */
    uint8_t DenoiseMode;   /**< of the noise filter, as the next two */
    uint8_t DenoiseDayStrenth;
    uint8_t DenoiseNightStrenth;
    uint8_t ColorStyleMode;
    uint8_t LDCConfig_enable;       /**< switch */
    uint8_t centorX;                /**< the centre */
    uint8_t centorY;                /**< the centre */
    uint8_t ratio;                  /**< of LDCConfig, as the centre */
    uint8_t StarlightConfig_enable; /**< switch */
    uint8_t DefogMode;
    uint8_t DefogValue;
    uint8_t WeightCoefficient; /**< of DoubleLight */
    uint8_t JpegConfig_Enable; /**< switch */
    uint8_t Stream;            /**< of JpegConfig */
    uint8_t Quality;           /**< of JpegConfig */
    uint8_t Framerate;         /**< of JpegConfig */
    uint8_t Overlay_Enable;    /**< switch */
    uint8_t Transparency;      /**< of the overlays */
    uint8_t TimeOverlay_PosX;  /**< place on the picture */
    uint8_t TimeOverlay_PosY;  /**< place on the picture */
    uint8_t WeekDisplayEn;     /**< switch: the time has the day of the week */
    int32_t AEStep;            /**< of the automatic exposure */
    int32_t BackLight;
    int32_t AETolerance; /**< of the automatic exposure */
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
    char Format[32];                            /**< of the time overlay */
    char Title[256];                            /**< of the title overlay */
    SYSTEM_CONFIG_ENCODE_ROW stEncodeConfig[2]; /**< main and sub stream */
    SYSTEM_CONFIG_MASK_ROW stMaskRows[2];       /**< main and sub stream */
    uint8_t Encode_Enable;                      /**< of the audio, as the rest */
    uint8_t Capture_Volume;                     /**< of the microphone */
    uint8_t Play_Volume;                        /**< of the loudspeaker */
    uint32_t SampleRate;                        /**< samples a second */
    uint32_t BitRate;
    char EncodeType[32]; /**< name of the coding */
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
