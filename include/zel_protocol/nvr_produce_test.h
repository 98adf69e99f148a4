/**
 * Test of a recorder at the factory: family "NVR_PRODUCE_TEST_MESSAGE". The code is decimal text; with
 * "CMD_HEARTBEAT" the type is a heartbeat (see core.h).
 *
 * Code 4009 has neither a body nor a record. A result is a number of the factory's.
 */
#ifndef ZEL_PROTOCOL_NVR_PRODUCE_TEST_H
#define ZEL_PROTOCOL_NVR_PRODUCE_TEST_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/** What was found of a recorder. */
typedef struct NVR_PRODUCE_TEST_RESULT
{
    char DevType[32];   /**< type of the device */
    char SerialNum[32]; /**< serial number */
    char RtcTime[24];   /**< time of the clock; not in 4006 */
    char DevVer[64];    /**< version of the firmware */
    int32_t DevTypeResult;
    int32_t DevVerResult;
    int32_t SnResult;
    int32_t RtcTimeResult; /**< not in 4006 */
    uint32_t AgingTime;    /**< how long it ran; written signed */
    int32_t AgingTimeResult;
    int32_t UsbResult;
    int32_t DiskResult;
    int32_t VGAResult; /**< this and the next four not in 4006 */
    int32_t HDMIResult;
    int32_t VideoDecodeResult;
    int32_t PilotLampResult;
    int32_t AudioDecodeResult;
    int32_t AgingAvgTemp; /**< average temperature */
    int32_t AgingAvgTempResult;
    uint32_t AgingAvgDuration; /**< average duration; written signed */
    int32_t AgingAvgDurationResult;
    int32_t DevCurrent; /**< electric current that it draws; this and the next three not in 4006 */
    int32_t DevCurrentResult;
    int32_t DevStartUpResult;
    int32_t EthPortResult;
    int32_t AlarmInputResult;
    int32_t AlarmOutputResult;
    int32_t RS232Result; /**< not in 4006, as the next */
    int32_t RS485Result;
    int32_t PanelUsbResult;
    int32_t EsataResult;
    int32_t FanResult;        /**< not in 4006, as the next */
    int32_t CheckTotalResult; /**< the whole test's */
} NVR_PRODUCE_TEST_RESULT;

/** 4002: switches a lamp, a request. */
typedef struct NVR_PRODUCE_TEST_4002_PARAM
{
    int32_t Switch; /**< 0 or 1 */
    int32_t Color;
} NVR_PRODUCE_TEST_4002_PARAM;

/** 4003: plays a sound. The request carries Soundtrack alone, the response the rest. */
typedef struct NVR_PRODUCE_TEST_4003_PARAM
{
    int32_t Soundtrack;
    int32_t frequency;
    int32_t method;
    char format[32];
} NVR_PRODUCE_TEST_4003_PARAM;

/** 4004, 4005: test of a screen. The request carries Screen alone, the response the rest. */
typedef struct NVR_PRODUCE_TEST_4004_PARAM
{
    int32_t Screen;
    int32_t channel;
    int32_t view_layout;
    uint64_t decode_status; /**< bit mask of channels; hexadecimal on the wire */
} NVR_PRODUCE_TEST_4004_PARAM;

typedef NVR_PRODUCE_TEST_4004_PARAM NVR_PRODUCE_TEST_4005_PARAM;

/** 4006: what the device found of itself, a response without a request body. It is written whole. */
typedef struct NVR_PRODUCE_TEST_4006_PARAM
{
    NVR_PRODUCE_TEST_RESULT stTestResult;
} NVR_PRODUCE_TEST_4006_PARAM;

/** 4007: the device's clock, a response without a request body. */
typedef struct NVR_PRODUCE_TEST_4007_PARAM
{
    uint32_t seconds; /**< s */
} NVR_PRODUCE_TEST_4007_PARAM;

/**
 * 4008: records the result of the whole test, a request. It is written whole, and a message that lacks any
 * attribute, or has a number that can't be read, is refused with ZEL_ERR_BAD_CONTENT.
 */
typedef struct NVR_PRODUCE_TEST_4008_PARAM
{
    char TesterName[36];
    NVR_PRODUCE_TEST_RESULT stTestResult;
} NVR_PRODUCE_TEST_4008_PARAM;

/** 4010: what can be tested, a response without a request body. It is written whole. */
typedef struct NVR_PRODUCE_TEST_4010_PARAM
{
    char PilotLampList[32]; /**< which lamps there are */
    char DevType[32];       /**< type of the device */
    int32_t DevTypeTest;    /**< this and the rest: whether it is to be tested, but where said otherwise */
    int32_t DevVerTest;
    int32_t SnTest;
    int32_t RtcTimeTest;
    int32_t USBTest;
    int32_t DiskTest;
    int32_t AgingTest;
    int32_t VGATest;
    int32_t HDMITest;
    int32_t VideoDecodeTest;
    int32_t AudioDecodeTest;
    int32_t PilotLampTest;
    int32_t PilotLampNum; /**< number of lamps */
    int32_t DevCurrentTest;
    int32_t DevStartUpTest;
    int32_t EthPortTest;
    int32_t AlarmInputTest;
    int32_t AlarmOutputTest;
    int32_t RS232Test;
    int32_t RS485Test;
    int32_t IPConflictEnable; /**< whether conflicts of addresses are looked for */
    int32_t PanelUsbTest;
    int32_t FanTest;
    int32_t EsataTest;
} NVR_PRODUCE_TEST_4010_PARAM;

/** 4011: the serial number, a response without a request body. */
typedef struct NVR_PRODUCE_TEST_4011_PARAM
{
    char SerialNumber[32];
} NVR_PRODUCE_TEST_4011_PARAM;

ZEL_API int NVR_PRODUCE_TEST_4002_PARAM_init(NVR_PRODUCE_TEST_4002_PARAM* param);
ZEL_API int NVR_PRODUCE_TEST_4003_PARAM_init(NVR_PRODUCE_TEST_4003_PARAM* param);
ZEL_API int NVR_PRODUCE_TEST_4004_PARAM_init(NVR_PRODUCE_TEST_4004_PARAM* param);
ZEL_API int NVR_PRODUCE_TEST_4005_PARAM_init(NVR_PRODUCE_TEST_4005_PARAM* param);
ZEL_API int NVR_PRODUCE_TEST_4006_PARAM_init(NVR_PRODUCE_TEST_4006_PARAM* param);
ZEL_API int NVR_PRODUCE_TEST_4007_PARAM_init(NVR_PRODUCE_TEST_4007_PARAM* param);
ZEL_API int NVR_PRODUCE_TEST_4008_PARAM_init(NVR_PRODUCE_TEST_4008_PARAM* param);
ZEL_API int NVR_PRODUCE_TEST_4010_PARAM_init(NVR_PRODUCE_TEST_4010_PARAM* param);
ZEL_API int NVR_PRODUCE_TEST_4011_PARAM_init(NVR_PRODUCE_TEST_4011_PARAM* param);

/**
 * Composes the body alone, of the message that `code` names.
 *
 * @param record  the record of that code; NULL leaves the buffer alone.
 * @param buf     receives the terminated text; stays as it was where there is nothing to write.
 * @return 0 or a status of ZEL_STATUS.
 */
ZEL_API int NvrProduceTestMessageCompose(const void* record, int kind, const char* code, char* buf, int len);

/** Analyses a text into the record of `code`; 4009 succeeds without one. */
ZEL_API int NvrProduceTestMessageAnalysis(const char* text, const char* code, void** result);

/* Each analyses a text into the record of its codes. */
ZEL_API int NvrProduceTest_LedControl_MessageAnalysis(const char* text, void** result);
ZEL_API int NvrProduceTest_AudioTest_MessageAnalysis(const char* text, void** result);
ZEL_API int NvrProduceTest_VGA_HMDI_Test_MessageAnalysis(const char* text, void** result);
ZEL_API int NvrProduceTest_ReportResult_MessageAnalysis(const char* text, void** result);
ZEL_API int NvrProduceTest_GetNvrSystemTime_MessageAnalysis(const char* text, void** result);
ZEL_API int NvrProduceTest_SendTestReuslt_MessageAnalysis(const char* text, void** result);
ZEL_API int NvrProduceTest_GetNvrTestAbality_MessageAnalysis(const char* text, void** result);
ZEL_API int NvrProduceTest_GetOtherParam_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
