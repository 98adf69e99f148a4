#include "zel_protocol/alarm_report.h"

#include "core/families.h"
#include "core/raw_data.h"
#include "core/records.h"
#include "zel_platform/log.h"

namespace zel {

namespace {

constexpr char kFamily[] = "ALARM_REPORT_MESSAGE";

using AlarmReport = ALARM_REPORT_CMD_RPEORT_ALARM_PARAM;
using FaceInfo = ALARM_REPORT_HUMANFACE_INFO;
using AnimalInfo = ALARM_REPORT_ANIMAL_INFO;
using CrossBorderInfo = ALARM_REPORT_CROSSBORDER_INFO;

// Alarm codes with an extension. Two of them have a second code; an analysis reports the first.
constexpr int32_t kCrossBorder = 32;
constexpr int32_t kFace = 38;
constexpr int32_t kOtherFace = 39;
constexpr int32_t kAnimal = 44;
constexpr int32_t kOtherAnimal = 45;

// --- Attribute lists, for both directions --------------------------------------------------------

constexpr auto sourceAttributes = [](auto& side, auto& record) {
    attribute(side, "Src", record.Src);
    attribute(side, "ChannelId", record.ChannelId);
};

constexpr auto alarmAttributes = [](auto& side, auto& record) {
    attribute(side, "Alarm_code", record.Alarm_code);
    attribute(side, "Alarm_flag", record.Alarm_flag);
    attribute(side, "Alarm_level", record.Alarm_level);
    attribute(side, "Alarm_data", record.Alarm_data);
    attributeIfSet(side, "Alarm_absTime", record.Alarm_absTime);
};

constexpr auto alarmTime = [](auto& side, auto& record) {
    attribute(side, "Year", record.Year);
    attribute(side, "Month", record.Month);
    attribute(side, "Day", record.Day);
    attribute(side, "WDay", record.WDay);
    attribute(side, "Hour", record.Hour);
    attribute(side, "Minute", record.Minute);
    attribute(side, "Second", record.Second);
};

constexpr auto faceAttributes = [](auto& side, auto& face) {
    attribute(side, "Age", face.Age);
    attribute(side, "Gender", face.Gender);
    attribute(side, "IsGlasses", face.IsGlasses);
    attribute(side, "IsMask", face.IsMask);
    attribute(side, "IsHat", face.IsHat);
    attribute(side, "DataLen", face.DataLen);
    attribute(side, "SimilarityThreshold", face.SimilarityThreshold);
    attribute(side, "SerialNum", face.SerialNum);
    attribute(side, "AlgVer", face.AlgVer);
    attribute(side, "uniqueIndex", face.uniqueIndex);
    signedAttribute(side, "absTime", face.absTime);
    attribute(side, "faceQualityScore", face.faceQualityScore);
    attribute(side, "HsvAreaScore", face.HsvAreaScore);
    attribute(side, "BlurSMD", face.BlurSMD);
    attribute(side, "ErrorCode", face.ErrorCode);
};

constexpr auto animalAttributes = [](auto& side, auto& animal) {
    attribute(side, "Animal_type", animal.Animal_type);
};

constexpr auto crossBorderAttributes = [](auto& side, auto& crossing) {
    attribute(side, "CrowdFlowStatEnable", crossing.CrowdFlowStatEnable);
    attribute(side, "CrowdFlowNum", crossing.CrowdFlowNum);
};

// --- Composing -----------------------------------------------------------------------------------

void composeExtension(TextWriter& out, const AlarmReport& record, int& extraLength)
{
    switch (record.Alarm_code) {
    case kFace:
    case kOtherFace: {
        const auto& face = as<FaceInfo>(record.pExData);
        element(out, "HumanFaceInfo", [&](TextWriter& side) { faceAttributes(side, face); });
        announceRawData(extraLength, static_cast<int32_t>(featureBlockSize(face.AlgVer)));
        break;
    }
    case kAnimal:
    case kOtherAnimal:
        element(out, "ANIMAL_INFO",
                [&](TextWriter& side) { animalAttributes(side, as<AnimalInfo>(record.pExData)); });
        break;
    case kCrossBorder:
        element(out, "CROSSBORDER_INFO",
                [&](TextWriter& side) { crossBorderAttributes(side, as<CrossBorderInfo>(record.pExData)); });
        break;
    default:
        ZelProtocolLogDebug(
            "ALARM_REPORT_MESSAGE message deal alarm_code:%d , code has pExData, but unknow type to use\n",
            record.Alarm_code);
    }
}

void composeReport(TextWriter& out, const AlarmReport& record, int& extraLength)
{
    if (isSet(record.Src))
        element(out, "SRC_INFO", [&](TextWriter& side) { sourceAttributes(side, record); });
    container(out, "ALARM_ITEM", [&](TextWriter& item) {
        element(item, "ALARM_INFO", [&](TextWriter& side) { alarmAttributes(side, record); });
        if (isSet(record.Year))
            element(item, "ALARM_TIME", [&](TextWriter& side) { alarmTime(side, record); });
        if (record.pExData)
            composeExtension(item, record, extraLength);
    });
}

// --- Analysis ------------------------------------------------------------------------------------

void readReport(const ElementReader& report, const ElementReader& item, AlarmReport& record)
{
    element(report, "SRC_INFO", [&](auto& side) { sourceAttributes(side, record); });
    element(item, "ALARM_INFO", [&](auto& side) { alarmAttributes(side, record); });
    element(item, "ALARM_TIME", [&](auto& side) { alarmTime(side, record); });
}

template <class Extension>
int startAtZero(Extension* extension)
{
    clear(*extension);
    return 0;
}

} // namespace

int AlarmReportMessageCompose(TextWriter& out, const void* record, int kind, int& extraLength)
{
    if (isRequest(kind))
        container(out, "ALARM_REPORT_PARAM",
                  [&](TextWriter& side) { composeReport(side, as<AlarmReport>(record), extraLength); });
    else
        ZelProtocolLogInfo("ALARM_REPORT_MESSAGE response message Not have Body, please check msgtype\n");
    return 0;
}

int AlarmReportMessageAnalysis(Message& message, void** result)
{
    if (message.isNull() || !result)
        return emptyParam(kFamily);
    const Leaf leaf{__func__};
    ElementReader body;
    if (const int status = openBody(message, result, leaf, body))
        return status;
    const ElementReader report = body.child("ALARM_REPORT_PARAM");
    if (!report)
        return missingElement(leaf, "ALARM_REPORT_PARAM");
    const ElementReader item = report.child("ALARM_ITEM");
    if (!item)
        return missingElement(leaf, "ALARM_ITEM");
    // The element decides, whatever the alarm's code.
    const auto give = [&](int32_t type, auto initExtension, auto fill) {
        return giveExtended<sizeof(FaceInfo)>(result, ALARM_REPORT_CMD_RPEORT_ALARM_PARAM_init, initExtension,
                                              [&](AlarmReport& record, auto& extension) {
                                                  readReport(report, item, record);
                                                  record.iExDataType = type;
                                                  fill(extension);
                                              });
    };
    if (const ElementReader element = item.child("HumanFaceInfo")) {
        uint8_t algorithmVersion = 0;
        attribute(element, "AlgVer", algorithmVersion);
        std::string_view block;
        if (const int status = findFeatureBlock(message, leaf, algorithmVersion, block))
            return status;
        return give(kFace, startAtZero<FaceInfo>, [&](FaceInfo& face) {
            faceAttributes(element, face);
            if (!block.empty())
                memcpy(face.aucFeatureData, block.data(), block.size());
        });
    }
    if (const ElementReader element = item.child("ANIMAL_INFO"))
        return give(kAnimal, startAtZero<AnimalInfo>,
                    [&](AnimalInfo& animal) { animalAttributes(element, animal); });
    if (const ElementReader element = item.child("CROSSBORDER_INFO"))
        return give(kCrossBorder, startAtZero<CrossBorderInfo>,
                    [&](CrossBorderInfo& crossing) { crossBorderAttributes(element, crossing); });
    return giveRecord(result, ALARM_REPORT_CMD_RPEORT_ALARM_PARAM_init,
                      [&](AlarmReport& record) { readReport(report, item, record); });
}

} // namespace zel

int ALARM_REPORT_CMD_RPEORT_ALARM_PARAM_init(ALARM_REPORT_CMD_RPEORT_ALARM_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.Alarm_data);
        record.pExData = nullptr;
    });
}

int AlarmReportMessageCompose(const void* record, int kind, char* buf, int len, int* iExtraLen)
{
    return zel::composeAnnouncing(zel::kFamily, record, buf, len, iExtraLen,
                                  [&](zel::TextWriter& out, int& extraLength) {
                                      return zel::AlarmReportMessageCompose(out, record, kind, extraLength);
                                  });
}

int AlarmReportMessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::AlarmReportMessageAnalysis>(text, result);
}
