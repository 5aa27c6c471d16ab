#include "pages/messages_page.h"

#include "string_ids.h"

namespace {

enum Control {
    kDPadActionLabel, kDPadAction, kOpenOnClick, kPreviewWhenOpen, kMarkReadOnPreview,
    kLineStyleLabel, kLineStyle, kCountersLabel, kCounters, kFoldButtons,
    kControlCount
};

const PageSection kSections[] = {
    {IDS_SECTION_GENERAL, kDPadActionLabel, kMarkReadOnPreview},
    {IDS_SECTION_LAYOUT, kLineStyleLabel, kFoldButtons},
};

const UINT kDPadActionItems[] = {IDS_DPAD_ACTION_DEFAULT, IDS_DPAD_ACTION_OPEN};
const UINT kLineStyleItems[] = {IDS_LINE_STYLE_NONE, IDS_LINE_STYLE_SOLID, IDS_LINE_STYLE_DOTTED, IDS_LINE_STYLE_BAR};
const UINT kCounterItems[] = {IDS_MSG_COUNTERS_NONE, IDS_MSG_COUNTERS_UNREAD, IDS_MSG_COUNTERS_UNREAD_TOTAL};

constexpr MessagesSettings& kMessages = g_settings.messages;

const PageRow kRows[] = {
    {kChoiceRow, 0, kDPadActionLabel, kDPadAction, IDS_DPAD_ACTION_LABEL, &kMessages.MsgsDPadActionOverride,
     PAGE_ITEMS(kDPadActionItems)},
    {kCheckRow, 0, kOpenOnClick, kOpenOnClick, IDS_TAP_OPENS_ITEM, &kMessages.MsgsOpenOnClick},
    {kCheckRow, 0, kPreviewWhenOpen, kPreviewWhenOpen, IDS_PREVIEW_BEFORE_OPENING, &kMessages.MsgsPreviewWhenOpen},
    {kCheckRow, 0, kMarkReadOnPreview, kMarkReadOnPreview, IDS_MSG_MARK_READ_ON_PREVIEW, &kMessages.MsgsMrkReadOnPrev},
    {kChoiceRow, 1, kLineStyleLabel, kLineStyle, IDS_LINE_STYLE_LABEL, &kMessages.MsgsBreakLineStyle,
     PAGE_ITEMS(kLineStyleItems)},
    {kChoiceRow, 1, kCountersLabel, kCounters, IDS_SHOW_COUNTERS, &kMessages.MsgsIncldCounters,
     PAGE_ITEMS(kCounterItems)},
    {kCheckRow, 1, kFoldButtons, kFoldButtons, IDS_SHOW_FOLD_BUTTONS, &kMessages.MsgsIncldFoldBttns},
};

}  // namespace

MessagesSettingsWin::MessagesSettingsWin()
    : RowTablePage(PAGE_TABLE(kSections), PAGE_TABLE(kRows), kControlCount) {}

SettingsPage* CreateMessagesPage() { return new MessagesSettingsWin; }
