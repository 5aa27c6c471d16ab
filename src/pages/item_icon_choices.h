#pragma once
// The item icons a page lets the user arrange beside an appointment or a task: two left icons,
// each one flag (0 = none), and a right-icon set, a sum of flags. An icon is never both a left
// icon and in the right-icon set: the right-icon check-list offers every choice but the two left
// icons, and an icon chosen for the left leaves the set at once.
//
// The strips show one marker per choice; a marker's value (and image) is the bit of its flag.
#include <windows.h>

#include "settings/setting_types.h"
#include "shell/icon_marker_strip.h"

struct ItemIconChoice {
    UINT textId;
    DWORD flag;
};

const int kItemIconChoiceCount = 8;
// The two kinds differ only at the sixth choice: a meeting for appointments, high priority for tasks.
extern const ItemIconChoice kAppointmentIconChoices[kItemIconChoiceCount];
extern const ItemIconChoice kTaskIconChoices[kItemIconChoiceCount];

int MarkerOfFlag(DWORD flag);
DWORD FlagOfMarker(int marker);  // kNoMarker and unknown markers give 0

// A left-icon drop-down: every choice, the chosen one off (the strip's way of marking a choice).
void FillLeftIconChoices(IconMarkerStrip& dropDown, const ItemIconChoice* choices, DWORD chosen);
// A right-icon check-list: every choice but the two left icons, on when its flag is in `set`.
void FillRightIconChoices(IconMarkerStrip& checkList, const ItemIconChoice* choices, DWORD left1, DWORD left2,
                          DWORD set);
// A left-icon slot takes `flag` at once; a flag in the right-icon set leaves it at once. The
// caller refills the check-list, which then gives back the slot's old icon unless the other slot
// holds it.
void ChooseLeftIcon(IntSetting& slot, IntSetting& rightSet, DWORD flag);
