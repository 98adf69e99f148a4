#include "events/face.h"

#include "core/raw_data.h"

namespace zel {

void faceScores(Side& side, ALARM_REPORT_HUMANFACE_INFO& face)
{
    attribute(side, "faceQualityScore", face.faceQualityScore);
    attribute(side, "HsvAreaScore", face.HsvAreaScore);
    attribute(side, "BlurSMD", face.BlurSMD);
    attribute(side, "ErrorCode", face.ErrorCode);
}

int findFaceFeatures(const Message& message, const Leaf& leaf, const ElementReader& element,
                     std::string_view& block)
{
    TreeReader side(element);
    uint8_t algorithmVersion = 0;
    attribute(side, "AlgVer", algorithmVersion);
    return findFeatureBlock(message, leaf, algorithmVersion, block);
}

void setFaceFeatures(ALARM_REPORT_HUMANFACE_INFO& face, std::string_view block)
{
    if (!block.empty())
        memcpy(face.aucFeatureData, block.data(), block.size());
}

} // namespace zel
