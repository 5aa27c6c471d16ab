#include "pages/item_icon_choices.h"

#include "display/display_ids.h"
#include "string_ids.h"
#include "support/app_state.h"
#include "support/wide_string.h"

const ItemIconChoice kAppointmentIconChoices[kItemIconChoiceCount] = {
    {IDS_ITEM_ICON_NOTE, 1},         {IDS_ITEM_ICON_REMINDER, 2}, {IDS_ITEM_ICON_RECURRING, 4},
    {IDS_ITEM_ICON_PRIVATE, 8},      {IDS_ITEM_ICON_CATEGORY, 16}, {IDS_ITEM_ICON_MEETING, 128},
    {IDS_ITEM_ICON_REGENERATED, 64}, {IDS_ITEM_ICON_CATEGORY_COLOR, 256},
};
const ItemIconChoice kTaskIconChoices[kItemIconChoiceCount] = {
    {IDS_ITEM_ICON_NOTE, 1},         {IDS_ITEM_ICON_REMINDER, 2}, {IDS_ITEM_ICON_RECURRING, 4},
    {IDS_ITEM_ICON_PRIVATE, 8},      {IDS_ITEM_ICON_CATEGORY, 16}, {IDS_ITEM_ICON_PRIORITY, 32},
    {IDS_ITEM_ICON_REGENERATED, 64}, {IDS_ITEM_ICON_CATEGORY_COLOR, 256},
};

namespace {

WString ChoiceName(const ItemIconChoice& choice) {
    WString name;
    name.load(g_app.languageLibrary, choice.textId);
    return name;
}

}  // namespace

int MarkerOfFlag(DWORD flag) { return ItemIconForFlag(flag); }

DWORD FlagOfMarker(int marker) { return marker >= 0 && marker < QL_ITEM_ICON_COUNT ? 1u << marker : 0; }

void FillLeftIconChoices(IconMarkerStrip& dropDown, const ItemIconChoice* choices, DWORD chosen) {
    dropDown.Clear();
    for (int i = 0; i < kItemIconChoiceCount; ++i) {
        int marker = MarkerOfFlag(choices[i].flag);
        dropDown.AddMarker(ChoiceName(choices[i]).c_str(), marker, marker,
                           choices[i].flag == chosen ? kMarkerOff : kMarkerOn);
    }
}

void FillRightIconChoices(IconMarkerStrip& checkList, const ItemIconChoice* choices, DWORD left1, DWORD left2,
                          DWORD set) {
    checkList.Clear();
    for (int i = 0; i < kItemIconChoiceCount; ++i) {
        DWORD flag = choices[i].flag;
        if (flag == left1 || flag == left2) continue;
        int marker = MarkerOfFlag(flag);
        checkList.AddMarker(ChoiceName(choices[i]).c_str(), marker, marker, (set & flag) ? kMarkerOn : kMarkerOff);
    }
}

void ChooseLeftIcon(IntSetting& slot, IntSetting& rightSet, DWORD flag) {
    SetInt(slot, flag);
    if (flag != 0 && (rightSet.value & flag)) SetInt(rightSet, rightSet.value - flag);
}
