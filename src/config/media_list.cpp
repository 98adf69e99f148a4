#include "config/media_list.h"

namespace zel {

namespace {

void maskAttributes(Side& side, SYSTEM_CONFIG_MASK_ROW& row)
{
    attribute(side, "Area1PosX", row.Area1PosX);
    attribute(side, "Area1PosY", row.Area1PosY);
    signedAttribute(side, "Area1Width", row.Area1Width);
    signedAttribute(side, "Area1Height", row.Area1Height);
    attribute(side, "Area2PosX", row.Area2PosX);
    attribute(side, "Area2PosY", row.Area2PosY);
    signedAttribute(side, "Area2Width", row.Area2Width);
    signedAttribute(side, "Area2Height", row.Area2Height);
    attribute(side, "Area3PosX", row.Area3PosX);
    attribute(side, "Area3PosY", row.Area3PosY);
    signedAttribute(side, "Area3Width", row.Area3Width);
    signedAttribute(side, "Area3Height", row.Area3Height);
    attribute(side, "Area4PosX", row.Area4PosX);
    attribute(side, "Area4PosY", row.Area4PosY);
    signedAttribute(side, "Area4Width", row.Area4Width);
    signedAttribute(side, "Area4Height", row.Area4Height);
}

} // namespace

void maskElements(Side& side, SYSTEM_CONFIG_MASK_ROW (&rows)[2])
{
    // The sub stream is only looked for behind the main stream.
    Siblings streams(side);
    if (streams.next("MainStream")) {
        maskAttributes(side, rows[0]);
        if (streams.next("SubStream"))
            maskAttributes(side, rows[1]);
    }
}

} // namespace zel
