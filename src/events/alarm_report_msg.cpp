#include "zel_protocol/alarm_report.h"

#include <cstddef>

#include "core/families.h"
#include "core/raw_data.h"
#include "events/face.h"
#include "zel_platform/log.h"

namespace zel {

namespace {

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

void sourceAttributes(Side& side, AlarmReport& record)
{
    attribute(side, "Src", record.Src);
    attribute(side, "ChannelId", record.ChannelId);
}

void alarmAttributes(Side& side, AlarmReport& record)
{
    attribute(side, "Alarm_code", record.Alarm_code);
    attribute(side, "Alarm_flag", record.Alarm_flag);
    attribute(side, "Alarm_level", record.Alarm_level);
    attribute(side, "Alarm_data", record.Alarm_data);
    attributeIfSet(side, "Alarm_absTime", record.Alarm_absTime);
}

void alarmTime(Side& side, AlarmReport& record)
{
    attribute(side, "Year", record.Year);
    attribute(side, "Month", record.Month);
    attribute(side, "Day", record.Day);
    attribute(side, "WDay", record.WDay);
    attribute(side, "Hour", record.Hour);
    attribute(side, "Minute", record.Minute);
    attribute(side, "Second", record.Second);
}

void faceAttributes(Side& side, FaceInfo& face)
{
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
    faceScores(side, face);
}

void animalAttributes(Side& side, AnimalInfo& animal)
{
    attribute(side, "Animal_type", animal.Animal_type);
}

void crossBorderAttributes(Side& side, CrossBorderInfo& crossing)
{
    attribute(side, "CrowdFlowStatEnable", crossing.CrowdFlowStatEnable);
    attribute(side, "CrowdFlowNum", crossing.CrowdFlowNum);
}

// What all reports have; the element of the extension, if it has one, is the item's last.
void report(Side& side, AlarmReport& record, Name extension = "", List list = nullptr)
{
    if (const Element source = elementIf(isSet(record.Src), side, "SRC_INFO"))
        sourceAttributes(side, record);
    if (const Element item = container(side, "ALARM_ITEM")) {
        if (const Element info = element(side, "ALARM_INFO"))
            alarmAttributes(side, record);
        if (const Element time = elementIf(isSet(record.Year), side, "ALARM_TIME"))
            alarmTime(side, record);
        if (list)
            if (const Element more = element(side, extension))
                list(side, record.pExData);
    }
}

void plainReport(Side& side, AlarmReport& record)
{
    report(side, record);
}

void faceReport(Side& side, AlarmReport& record)
{
    report(side, record, "HumanFaceInfo", Erased<faceAttributes>::call);
}

void animalReport(Side& side, AlarmReport& record)
{
    report(side, record, "ANIMAL_INFO", Erased<animalAttributes>::call);
}

void crossBorderReport(Side& side, AlarmReport& record)
{
    report(side, record, "CROSSBORDER_INFO", Erased<crossBorderAttributes>::call);
}

// --- Messages ------------------------------------------------------------------------------------

int composeAlarm(const MessageRow&, Outbound& outbound);
int analyseAlarm(const MessageRow& row, Message& message, void** result);

template <auto list>
constexpr MessageRow alarm()
{
    return message<ALARM_REPORT_CMD_RPEORT_ALARM_PARAM_init>(
               "AlarmReportMessageAnalysis", within<list>("ALARM_REPORT_PARAM", Kinds::kRequests, kElements))
        .composedBy(composeAlarm)
        .analysedBy(analyseAlarm);
}

template <auto list, class Extension>
constexpr MessageRow extendedAlarm()
{
    return alarm<list>().template extendedBy<startAtZero<Extension>>(offsetof(AlarmReport, pExData));
}

constexpr MessageRow kPlainAlarm = alarm<plainReport>();
constexpr MessageRow kFaceAlarm = extendedAlarm<faceReport, FaceInfo>().followedBy(
    ZEL_BEHIND_FEATURE_BLOCK, offsetof(AlarmReport, pExData));
constexpr MessageRow kAnimalAlarm = extendedAlarm<animalReport, AnimalInfo>();
constexpr MessageRow kCrossBorderAlarm = extendedAlarm<crossBorderReport, CrossBorderInfo>();

constexpr char kCode[] = "CMD_REPORT_ALARM";

// By the alarm's code.
constexpr CodeRow kAlarms[] = {
    {-1, &kPlainAlarm, nullptr, 0, kCode},       {kCrossBorder, &kCrossBorderAlarm, nullptr, 0, kCode},
    {kFace, &kFaceAlarm, nullptr, 0, kCode},     {kOtherFace, &kFaceAlarm, nullptr, 0, kCode},
    {kAnimal, &kAnimalAlarm, nullptr, 0, kCode}, {kOtherAnimal, &kAnimalAlarm, nullptr, 0, kCode},
};
static_assert(isAscending(kAlarms));

// --- Composing -----------------------------------------------------------------------------------

const MessageRow& rowOf(const AlarmReport& record)
{
    if (!record.pExData)
        return kPlainAlarm;
    if (isSet(record.Alarm_code))
        if (const CodeRow* const found = findCode(kAlarmReportFamily, record.Alarm_code))
            return *found->row;
    ZelProtocolLogDebug(
        "ALARM_REPORT_MESSAGE message deal alarm_code:%d , code has pExData, but unknow type to use\n",
        record.Alarm_code);
    return kPlainAlarm;
}

int composeAlarm(const MessageRow&, Outbound& outbound)
{
    if (!isRequest(outbound.kind)) {
        ZelProtocolLogInfo("ALARM_REPORT_MESSAGE response message Not have Body, please check msgtype\n");
        return 0;
    }
    const auto& record = as<AlarmReport>(outbound.record);
    const MessageRow& row = rowOf(record);
    if (row.behind == ZEL_BEHIND_FEATURE_BLOCK) {
        const uint8_t version = as<FaceInfo>(record.pExData).AlgVer;
        announceRawData(outbound.extraLength, static_cast<int32_t>(featureBlockSize(version)));
    }
    writePart(row.parts[0], outbound);
    return 0;
}

int composeFamily(const Family& family, Outbound& outbound)
{
    return outbound.code == kCode ? composeOnly(family, outbound) : ZEL_ERR_UNKNOWN_MSG;
}

// --- Analysis ------------------------------------------------------------------------------------

// The element decides, whatever the alarm's code.
struct Found
{
    const MessageRow& row;
    int32_t type;
    ElementReader element;
};

Found findExtension(const ElementReader& item)
{
    if (const ElementReader face = item.child("HumanFaceInfo"))
        return {kFaceAlarm, kFace, face};
    if (const ElementReader animal = item.child("ANIMAL_INFO"))
        return {kAnimalAlarm, kAnimal, animal};
    if (const ElementReader crossing = item.child("CROSSBORDER_INFO"))
        return {kCrossBorderAlarm, kCrossBorder, crossing};
    return {kPlainAlarm, -1, {}};
}

int analyseAlarm(const MessageRow& row, Message& message, void** result)
{
    ElementReader body;
    if (const int status = openBody(message, result, row.leaf, body))
        return status;
    TreeReader place(body.child("ALARM_REPORT_PARAM"));
    if (!place.at)
        return missingElement(row.leaf, "ALARM_REPORT_PARAM");
    const ElementReader item = place.at.child("ALARM_ITEM");
    if (!item)
        return missingElement(row.leaf, "ALARM_ITEM");
    const Found found = findExtension(item);
    std::string_view block;
    if (found.type == kFace)
        if (const int status = findFaceFeatures(message, row.leaf, found.element, block))
            return status;
    if (!found.element)
        return giveRecord(result, found.row.record, place, found.row.parts[0].list);
    auto* const record =
        static_cast<AlarmReport*>(takeExtended(found.row.record, found.row.extension, sizeof(FaceInfo)));
    if (!record)
        return ZEL_ERR_NO_MEMORY;
    found.row.parts[0].list(place, record);
    record->iExDataType = found.type;
    if (found.type == kFace)
        setFaceFeatures(*static_cast<FaceInfo*>(record->pExData), block);
    *result = record;
    return 0;
}

} // namespace

extern constexpr Family kAlarmReportFamily("ALARM_REPORT_MESSAGE", kAlarms, composeFamily, analyseOnly);

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int ALARM_REPORT_CMD_RPEORT_ALARM_PARAM_init(ALARM_REPORT_CMD_RPEORT_ALARM_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.Alarm_data);
        record.pExData = nullptr;
    });
}

int AlarmReportMessageCompose(const void* record, int kind, char* buf, int len, int* iExtraLen)
{
    return zel::composeAnnouncing(zel::kAlarmReportFamily, record, kind, zel::kCode, buf, len, iExtraLen);
}

int AlarmReportMessageAnalysis(const char* text, void** result)
{
    return zel::analyseText(zel::kAlarmReportFamily, text, zel::kCode, result);
}
