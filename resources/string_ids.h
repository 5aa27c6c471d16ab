#pragma once
// Ids of the language library's resources: the string ids every page, dialog and message box
// loads, the menus, and the commands the menus send.
//
// The string ids are listed once, in X-macro groups (one per window or dialog), as
// X(name, id). C++ code gets an enumerator per name and the array kAllStringIds of every id the
// program loads; a language library must give each of them a text. Ids shared by several pages
// are in the Shared group only. Message boxes take their text from id N and their caption from
// id N + 1; the names end in _TEXT and _CAPTION.

// ---- Menus (resources of the language library) ----------------------------------------------
// Main window menu bar. Top-level item 0 is a placeholder the program deletes (toolbar button
// 0); sub-menu 1 has at least seven items, of which positions 5 and 6 are removed at start-up.
#define IDR_MAIN_MENU 102
// Two commands, OK (1) first and Cancel (2) second: the font dialog and the alphabet selection.
#define IDR_OK_CANCEL_MENU 142
// Two commands, OK (1) and Cancel (2): the file and folder browser.
#define IDR_BROWSER_MENU 149

// Positions the main window relies on.
#define QL_MAIN_MENU_SUBMENU_POSITION 1
#define QL_MAIN_MENU_FIRST_REMOVED_POSITION 5

// ---- Commands -------------------------------------------------------------------------------
#define IDM_DONE 1
#define IDM_CANCEL 2
#define IDM_RESET_FONT_HEIGHTS 40043
#define IDM_ABOUT 40053
#define IDM_EXPORT_SETTINGS 40839
#define IDM_IMPORT_SETTINGS 40840
// Legacy entries of the main menu's sub-menu (positions 5 and 6, removed at start-up).
#define IDM_LEGACY_REGISTER 40841
#define IDM_LEGACY_CHECK_UPDATES 40842
// Main menu: the icon set chooser.
#define IDM_ICON_SET 40843

// ---- String ids, by window ------------------------------------------------------------------

#define QL_SHARED_STRING_IDS(X)                                                                  \
    X(IDS_SECTION_GENERAL, 40240)                                                                \
    X(IDS_SECTION_OTHER, 40247)                                                                  \
    X(IDS_SECTION_LAYOUT, 40763)                                                                 \
    X(IDS_SECTION_DISPLAY, 40764)                                                                \
    X(IDS_BUTTON_UP, 40248)                                                                      \
    X(IDS_BUTTON_DOWN, 40249)                                                                    \
    X(IDS_BUTTON_BROWSE, 40478)                                                                  \
    X(IDS_BUTTON_CLEAR, 40481)                                                                   \
    X(IDS_BUTTON_ADD, 40482)                                                                     \
    X(IDS_BUTTON_SET, 40483)                                                                     \
    X(IDS_NO_COLOR, 40553)                                                                       \
    X(IDS_MARKER_NONE, 40791)                                                                    \
    X(IDS_SELECT_ITEM_FIRST_TEXT, 40238)                                                         \
    X(IDS_SELECT_ITEM_FIRST_CAPTION, 40239)                                                      \
    X(IDS_LINE_STYLE_LABEL, 40769)                                                               \
    X(IDS_LINE_STYLE_NONE, 25)                                                                   \
    X(IDS_LINE_STYLE_SOLID, 26)                                                                  \
    X(IDS_LINE_STYLE_DOTTED, 27)                                                                 \
    X(IDS_LINE_STYLE_BAR, 40944)                                                                 \
    X(IDS_SHOW_FOLD_BUTTONS, 40770)                                                              \
    X(IDS_SHOW_COUNTERS, 40975)                                                                  \
    X(IDS_FOLDING_TITLE_TAP, 40408)                                                              \
    X(IDS_FOLDING_BUTTON, 40409)                                                                 \
    X(IDS_FOLDING_BOTH, 40410)                                                                   \
    X(IDS_FUTURE_LIMIT_NONE, 40781)                                                              \
    X(IDS_FUTURE_LIMIT_TOMORROW, 40782)                                                          \
    X(IDS_FUTURE_LIMIT_3_DAYS, 40783)                                                            \
    X(IDS_FUTURE_LIMIT_1_WEEK, 40784)                                                            \
    X(IDS_FUTURE_LIMIT_2_WEEKS, 40785)                                                           \
    X(IDS_FUTURE_LIMIT_1_MONTH, 40786)                                                           \
    X(IDS_FUTURE_LIMIT_3_MONTHS, 40787)                                                          \
    X(IDS_FUTURE_LIMIT_1_YEAR, 40788)                                                            \
    X(IDS_ITEM_ICON_NOTE, 40255)                                                                 \
    X(IDS_ITEM_ICON_REMINDER, 40256)                                                             \
    X(IDS_ITEM_ICON_RECURRING, 40257)                                                            \
    X(IDS_ITEM_ICON_PRIVATE, 40258)                                                              \
    X(IDS_ITEM_ICON_CATEGORY, 40259)                                                             \
    X(IDS_ITEM_ICON_REGENERATED, 40260)                                                          \
    X(IDS_ITEM_ICON_PRIORITY, 40261)                                                             \
    X(IDS_ITEM_ICON_MEETING, 40920)                                                              \
    X(IDS_ITEM_ICON_CATEGORY_COLOR, 40921)                                                       \
    X(IDS_TASK_ICON_LEFT1_LABEL, 40252)                                                          \
    X(IDS_TASK_ICON_LEFT2_LABEL, 40253)                                                          \
    X(IDS_TASK_ICON_RIGHT_LABEL, 40919)                                                          \
    X(IDS_SEARCH_BAR_LABEL, 41146)                                                               \
    X(IDS_SEARCH_BAR_NONE, 41147)                                                                \
    X(IDS_SEARCH_BAR_LATIN, 41148)                                                               \
    X(IDS_SEARCH_BAR_CYRILLIC, 41149)                                                            \
    X(IDS_SEARCH_BAR_HEBREW, 41150)                                                              \
    X(IDS_SEARCH_BAR_GREEK, 41151)                                                               \
    X(IDS_SEARCH_BAR_SWITCHABLE, 41152)                                                          \
    X(IDS_SEARCH_BAR_CHOOSE, 41184)                                                              \
    X(IDS_CONTACT_TITLE_LABEL, 41188)                                                            \
    X(IDS_CONTACT_TITLE_FIRST_LAST, 41185)                                                       \
    X(IDS_CONTACT_TITLE_LAST_FIRST, 41186)                                                       \
    X(IDS_CONTACT_TITLE_COMPANY, 41187)                                                          \
    X(IDS_DPAD_ACTION_LABEL, 41225)                                                              \
    X(IDS_DPAD_ACTION_DEFAULT, 41222)                                                            \
    X(IDS_DPAD_ACTION_OPEN, 41223)                                                               \
    X(IDS_DPAD_ACTION_CALL, 41224)                                                               \
    X(IDS_TAP_OPENS_ITEM, 41226)                                                                 \
    X(IDS_PREVIEW_BEFORE_OPENING, 41218)                                                         \
    X(IDS_NO_CATEGORY, 41160)

// Main window: the language's display name (the General page lists libraries by it), page titles, built-in tab titles, the quit question and the backup messages.
#define QL_MAIN_STRING_IDS(X)                                                                    \
    X(IDS_LANGUAGE_NAME, 719)                                                                    \
    X(IDS_PAGE_GENERAL, 40220)                                                                   \
    X(IDS_PAGE_CALENDAR, 40221)                                                                  \
    X(IDS_PAGE_TASKS, 40222)                                                                     \
    X(IDS_PAGE_NOTES, 40981)                                                                     \
    X(IDS_PAGE_CONTACTS, 41174)                                                                  \
    X(IDS_PAGE_MESSAGES, 40982)                                                                  \
    X(IDS_PAGE_SPECIAL_EVENTS, 40223)                                                            \
    X(IDS_PAGE_FONTS, 40224)                                                                     \
    X(IDS_PAGE_COLORS, 40225)                                                                    \
    X(IDS_PAGE_PIM, 40227)                                                                       \
    X(IDS_PAGE_TABS, 40228)                                                                      \
    X(IDS_PAGE_CATEGORIES, 40229)                                                                \
    X(IDS_TAB_CALENDAR, 41180)                                                                   \
    X(IDS_TAB_TASKS, 41155)                                                                      \
    X(IDS_TAB_NOTES, 41156)                                                                      \
    X(IDS_TAB_CONTACTS, 41157)                                                                   \
    X(IDS_TAB_MESSAGES, 41158)                                                                   \
    X(IDS_TAB_SPECIAL_EVENTS, 41159)                                                             \
    X(IDS_QUIT_TEXT, 40216)                                                                      \
    X(IDS_QUIT_CAPTION, 40217)                                                                   \
    X(IDS_EXPORTED_TEXT, 40208)                                                                  \
    X(IDS_EXPORTED_CAPTION, 40209)                                                               \
    X(IDS_IMPORT_FAILED_TEXT, 40212)                                                             \
    X(IDS_IMPORT_FAILED_CAPTION, 40213)                                                          \
    X(IDS_IMPORTED_TEXT, 40214)                                                                  \
    X(IDS_IMPORTED_CAPTION, 40215)

#define QL_GENERAL_PAGE_STRING_IDS(X)                                                            \
    X(IDS_GEN_SECTION_LOOK, 41239)                                                               \
    X(IDS_GEN_SECTION_TABS_BAR, 40962)                                                           \
    X(IDS_GEN_SECTION_DPAD, 41084)                                                               \
    X(IDS_GEN_ON_TAP_LABEL, 40655)                                                               \
    X(IDS_GEN_ON_TAP_OPEN, 31)                                                                   \
    X(IDS_GEN_ON_TAP_PREVIEW, 32)                                                                \
    X(IDS_GEN_ON_TAP_SELECT, 40657)                                                              \
    X(IDS_GEN_ON_DOUBLE_TAP_LABEL, 40658)                                                        \
    X(IDS_GEN_ON_DOUBLE_TAP_OPEN, 40660)                                                         \
    X(IDS_GEN_ON_DOUBLE_TAP_PREVIEW, 40661)                                                      \
    X(IDS_GEN_ON_DOUBLE_TAP_NOTHING, 40662)                                                      \
    X(IDS_GEN_AUTO_HEIGHT, 41238)                                                                \
    X(IDS_GEN_HEIGHT_LABEL, 40663)                                                               \
    X(IDS_GEN_LANDSCAPE_HEIGHT_LABEL, 40665)                                                     \
    X(IDS_GEN_SKIN_LABEL, 40638)                                                                 \
    X(IDS_GEN_LANGUAGE_LABEL, 40667)                                                             \
    X(IDS_GEN_VERTICAL_TABS, 40965)                                                              \
    X(IDS_GEN_SOUND_EFFECTS, 40671)                                                              \
    X(IDS_GEN_GOOFY_MODE, 40708)                                                                 \
    X(IDS_GEN_INDENT_ITEMS, 40963)                                                               \
    X(IDS_GEN_FILTER_TITLE_LABEL, 40649)                                                         \
    X(IDS_GEN_ALIGN_LEFT, 40699)                                                                 \
    X(IDS_GEN_ALIGN_CENTER, 40700)                                                               \
    X(IDS_GEN_ALIGN_RIGHT, 40701)                                                                \
    X(IDS_GEN_REMOVE_TABS_BAR, 40652)                                                            \
    X(IDS_GEN_REMOVE_SETTINGS_BUTTON, 40964)                                                     \
    X(IDS_GEN_REMOVE_SEPARATING_LINE, 40644)                                                     \
    X(IDS_GEN_DPAD_ENABLED, 41085)                                                               \
    X(IDS_GEN_DPAD_MODE_LABEL, 41086)                                                            \
    X(IDS_GEN_DPAD_MODE_ITEMS, 41087)                                                            \
    X(IDS_GEN_DPAD_MODE_SCROLL, 41088)                                                           \
    X(IDS_GEN_DPAD_ACTION_LABEL, 41089)                                                          \
    X(IDS_GEN_DPAD_ACTION_OPEN, 41090)                                                           \
    X(IDS_GEN_DPAD_ACTION_COMPLETE, 41091)                                                       \
    X(IDS_GEN_DPAD_ACTION_MENU, 41092)                                                           \
    X(IDS_GEN_DPAD_DOUBLE_PRESS_TABS, 41093)                                                     \
    X(IDS_GEN_DPAD_SCROLLING_LABEL, 41094)                                                       \
    X(IDS_GEN_SCROLL_BY_LINE, 40463)                                                             \
    X(IDS_GEN_SCROLL_BY_PAGE, 40464)                                                             \
    X(IDS_GEN_SCROLL_BY_ITEM, 40465)                                                             \
    X(IDS_GEN_EXCLUSIVE_DPAD, 40967)                                                             \
    X(IDS_GEN_DOUBLE_TAP_SCROLL, 40677)                                                          \
    X(IDS_GEN_FULL_PAGE_SCROLLING, 40679)                                                        \
    X(IDS_GEN_VGA_MODE, 40704)                                                                   \
    X(IDS_GEN_THIN_LINES, 40710)                                                                 \
    X(IDS_GEN_REMOVE_HIGHLIGHT, 40702)                                                           \
    X(IDS_GEN_LOADING_DELAY_LABEL, 40969)

// Calendar page: sections 1 to 7 (section 0 is IDS_SECTION_GENERAL), section 0's rows, the rows
// of the six option lists (_ROW), the option titles and tips, their choices, the icon rows and
// the preview texts.
#define QL_CALENDAR_PAGE_STRING_IDS(X)                                                           \
    X(IDS_CAL_SECTION_APPOINTMENTS, 40241)                                                       \
    X(IDS_CAL_SECTION_TASKS, 40242)                                                              \
    X(IDS_CAL_SECTION_DAY_TITLES, 40243)                                                         \
    X(IDS_CAL_SECTION_ICONS, 40244)                                                              \
    X(IDS_CAL_SECTION_MONTH, 40245)                                                              \
    X(IDS_CAL_SECTION_MAIL, 40246)                                                               \
    X(IDS_CAL_DAYS_LABEL, 40323)                                                                 \
    X(IDS_CAL_FIRST_WEEK_LABEL, 40265)                                                           \
    X(IDS_CAL_FIRST_WEEK_JAN1, 40331)                                                            \
    X(IDS_CAL_FIRST_WEEK_FOUR_DAYS, 40332)                                                       \
    X(IDS_CAL_FIRST_WEEK_FULL, 40333)                                                            \
    X(IDS_CAL_FIRST_WEEK_SYSTEM, 40334)                                                          \
    X(IDS_CAL_TEXT_COLOR_LABEL, 40335)                                                           \
    X(IDS_CAL_TEXT_COLOR_NORMAL, 40337)                                                          \
    X(IDS_CAL_TEXT_COLOR_CATEGORY, 40338)                                                        \
    X(IDS_CAL_TEXT_COLOR_STATUS, 40339)                                                          \
    X(IDS_CAL_HIDE_EMPTY_DAYS, 41280)                                                            \
    X(IDS_CAL_HIDE_EMPTY_DAY_LINE, 41281)                                                        \
    X(IDS_CAL_SPECIAL_EVENTS, 40922)                                                             \
    X(IDS_CAL_SORT_TASKS_WITH_APPTS, 41195)                                                      \
    X(IDS_CAL_ROW_PASSED_TODAY, 40267)                                                           \
    X(IDS_CAL_ROW_YEARLY_COUNTERS, 40268)                                                        \
    X(IDS_CAL_ROW_LEADING_RECTS, 40269)                                                          \
    X(IDS_CAL_ROW_CONFLICTS, 40270)                                                              \
    X(IDS_CAL_ROW_TASKS_IN_CAL, 40271)                                                           \
    X(IDS_CAL_ROW_OVERDUE_TASKS, 40272)                                                          \
    X(IDS_CAL_ROW_FUTURE_TASKS, 40273)                                                           \
    X(IDS_CAL_ROW_UNDATED_TASKS, 40274)                                                          \
    X(IDS_CAL_ROW_COMPLETED_DATES, 40275)                                                        \
    X(IDS_CAL_ROW_PAST_COMPLETED, 40276)                                                         \
    X(IDS_CAL_ROW_FUTURE_LIMIT, 40923)                                                           \
    X(IDS_CAL_ROW_TASK_SORT, 40277)                                                              \
    X(IDS_CAL_ROW_WEEKENDS, 40278)                                                               \
    X(IDS_CAL_ROW_DUE_DATE_FORMAT, 40279)                                                        \
    X(IDS_CAL_ROW_ACTIVE_TASKS, 40281)                                                           \
    X(IDS_CAL_ROW_TASKS_FIRST, 40282)                                                            \
    X(IDS_CAL_ROW_CONFIRM_COMPLETE, 40283)                                                       \
    X(IDS_CAL_ROW_DAY_TITLE_FORMAT, 40284)                                                       \
    X(IDS_CAL_ROW_DAY_SEPARATOR, 40285)                                                          \
    X(IDS_CAL_ROW_TIME_LINES, 40286)                                                             \
    X(IDS_CAL_ROW_TOMORROW_TITLE, 40287)                                                         \
    X(IDS_CAL_ROW_COUNTERS, 40288)                                                               \
    X(IDS_CAL_ROW_SMART_FOLDING, 40289)                                                          \
    X(IDS_CAL_ROW_FOLDING_TYPE, 40290)                                                           \
    X(IDS_CAL_ROW_FREE_TIME, 40291)                                                              \
    X(IDS_CAL_ROW_FORCE_TODAY, 40294)                                                            \
    X(IDS_CAL_ROW_DATE_IN_TODAY, 40295)                                                          \
    X(IDS_CAL_ROW_DAYS_COUNT, 40296)                                                             \
    X(IDS_CAL_ROW_WEEK_NUMBER, 40297)                                                            \
    X(IDS_CAL_ROW_TIME_LINES_START, 40925)                                                       \
    X(IDS_CAL_ROW_TIME_LINES_LENGTH, 40926)                                                      \
    X(IDS_CAL_ROW_TIME_LINES_VZOOM, 40927)                                                       \
    X(IDS_CAL_ROW_TIME_LINES_HZOOM, 40928)                                                       \
    X(IDS_CAL_ROW_DAY_TAP, 40298)                                                                \
    X(IDS_CAL_ROW_POPUP_DATE_FORMAT, 40299)                                                      \
    X(IDS_CAL_ROW_WEEK_START, 40300)                                                             \
    X(IDS_CAL_ROW_FIRST_WORK_DAY, 40929)                                                         \
    X(IDS_CAL_ROW_WEEK_NUMBERS, 40301)                                                           \
    X(IDS_CAL_ROW_POPUP_TIME_LINES, 40930)                                                       \
    X(IDS_CAL_ROW_CATEGORY_ICONS, 40931)                                                         \
    X(IDS_CAL_ROW_ICON_SIZE, 40932)                                                              \
    X(IDS_CAL_ROW_PINNED, 40933)                                                                 \
    X(IDS_CAL_ROW_MAIL_LINE, 40316)                                                              \
    X(IDS_CAL_ROW_MAIL_HIDE_EMPTY, 40317)                                                        \
    X(IDS_CAL_ROW_MAIL_TITLE_FORMAT, 40318)                                                      \
    X(IDS_CAL_ROW_MAIL_PROGRAM, 40319)                                                           \
    X(IDS_CAL_ROW_MAIL_CUSTOM_PROGRAM, 40320)                                                    \
    X(IDS_CAL_ROW_MAIL_UNDER_TODAY, 40321)                                                       \
    X(IDS_CAL_ROW_MAIL_COUNTER, 40322)                                                           \
    X(IDS_CAL_ROW_TWO_DIGIT_HOURS, 40302)                                                        \
    X(IDS_CAL_ROW_SKIN_COLLAPSED, 40304)                                                         \
    X(IDS_CAL_ROW_HUMAN_TIME, 40306)                                                             \
    X(IDS_CAL_ROW_OVERDUE_TITLE, 40307)                                                          \
    X(IDS_CAL_ROW_UNDATED_TITLE, 40308)                                                          \
    X(IDS_CAL_ROW_CUSTOM_DAY_TITLE, 40309)                                                       \
    X(IDS_CAL_ROW_TITLE_ORDER, 40934)                                                            \
    X(IDS_CAL_PASSED_TODAY_TITLE, 40340)                                                         \
    X(IDS_CAL_PASSED_TODAY_TIP, 40341)                                                           \
    X(IDS_CAL_PASSED_SHOW, 28)                                                                   \
    X(IDS_CAL_PASSED_HIDE, 30)                                                                   \
    X(IDS_CAL_YEARLY_COUNTERS_TITLE, 40342)                                                      \
    X(IDS_CAL_YEARLY_COUNTERS_TIP, 40343)                                                        \
    X(IDS_CAL_LEADING_RECTS_TITLE, 40344)                                                        \
    X(IDS_CAL_LEADING_RECTS_TIP, 40345)                                                          \
    X(IDS_CAL_LEADING_RECTS_NONE, 40346)                                                         \
    X(IDS_CAL_LEADING_RECTS_STATUS, 40347)                                                       \
    X(IDS_CAL_LEADING_RECTS_CATEGORY, 40348)                                                     \
    X(IDS_CAL_CONFLICTS_TITLE, 40349)                                                            \
    X(IDS_CAL_CONFLICTS_TIP, 40350)                                                              \
    X(IDS_CAL_CONFLICTS_IGNORE, 40351)                                                           \
    X(IDS_CAL_CONFLICTS_MARK, 40352)                                                             \
    X(IDS_CAL_CONFLICTS_RED, 40353)                                                              \
    X(IDS_CAL_TASKS_IN_CAL_TITLE, 40354)                                                         \
    X(IDS_CAL_TASKS_IN_CAL_TIP, 40355)                                                           \
    X(IDS_CAL_OVERDUE_TASKS_TITLE, 40356)                                                        \
    X(IDS_CAL_OVERDUE_TASKS_TIP, 40357)                                                          \
    X(IDS_CAL_FUTURE_TASKS_TITLE, 40358)                                                         \
    X(IDS_CAL_FUTURE_TASKS_TIP, 40359)                                                           \
    X(IDS_CAL_UNDATED_TASKS_TITLE, 40360)                                                        \
    X(IDS_CAL_UNDATED_TASKS_TIP, 40361)                                                          \
    X(IDS_CAL_COMPLETED_DATES_TITLE, 40936)                                                      \
    X(IDS_CAL_COMPLETED_DATES_TIP, 40937)                                                        \
    X(IDS_CAL_COMPLETED_ON_COMPLETION, 40938)                                                    \
    X(IDS_CAL_COMPLETED_ON_DUE, 40939)                                                           \
    X(IDS_CAL_COMPLETED_ON_START, 40940)                                                         \
    X(IDS_CAL_COMPLETED_HIDDEN, 40941)                                                           \
    X(IDS_CAL_PAST_COMPLETED_TITLE, 40364)                                                       \
    X(IDS_CAL_PAST_COMPLETED_TIP, 40365)                                                         \
    X(IDS_CAL_FUTURE_LIMIT_TITLE, 40942)                                                         \
    X(IDS_CAL_FUTURE_LIMIT_TIP, 40943)                                                           \
    X(IDS_CAL_TASK_SORT_TITLE, 40366)                                                            \
    X(IDS_CAL_TASK_SORT_TIP, 40367)                                                              \
    X(IDS_CAL_TASK_SORT_NONE, 40368)                                                             \
    X(IDS_CAL_TASK_SORT_SUBJECT, 40369)                                                          \
    X(IDS_CAL_TASK_SORT_PRIORITY, 40370)                                                         \
    X(IDS_CAL_TASK_SORT_DUE, 40371)                                                              \
    X(IDS_CAL_TASK_SORT_START, 40372)                                                            \
    X(IDS_CAL_TASK_SORT_CATEGORY, 40373)                                                         \
    X(IDS_CAL_TASK_SORT_PRIORITY_DUE, 40374)                                                     \
    X(IDS_CAL_WEEKENDS_TITLE, 40375)                                                             \
    X(IDS_CAL_WEEKENDS_TIP, 40376)                                                               \
    X(IDS_CAL_WEEKENDS_SHOW, 40377)                                                              \
    X(IDS_CAL_WEEKENDS_SKIP_SATURDAY, 40378)                                                     \
    X(IDS_CAL_WEEKENDS_SKIP_SUNDAY, 40379)                                                       \
    X(IDS_CAL_WEEKENDS_SKIP_BOTH, 40380)                                                         \
    X(IDS_CAL_DUE_DATE_FORMAT_TITLE, 40381)                                                      \
    X(IDS_CAL_DUE_DATE_FORMAT_TIP, 40382)                                                        \
    X(IDS_CAL_ACTIVE_TASKS_TITLE, 40385)                                                         \
    X(IDS_CAL_ACTIVE_TASKS_TIP, 40386)                                                           \
    X(IDS_CAL_TASKS_FIRST_TITLE, 40387)                                                          \
    X(IDS_CAL_TASKS_FIRST_TIP, 40388)                                                            \
    X(IDS_CAL_CONFIRM_COMPLETE_TITLE, 40389)                                                     \
    X(IDS_CAL_CONFIRM_COMPLETE_TIP, 40390)                                                       \
    X(IDS_CAL_DAY_TITLE_FORMAT_TITLE, 40391)                                                     \
    X(IDS_CAL_DAY_TITLE_FORMAT_TIP, 40392)                                                       \
    X(IDS_CAL_DAY_SEPARATOR_TITLE, 40393)                                                        \
    X(IDS_CAL_DAY_SEPARATOR_TIP, 40394)                                                          \
    X(IDS_CAL_TIME_LINES_TITLE, 40395)                                                           \
    X(IDS_CAL_TIME_LINES_TIP, 40396)                                                             \
    X(IDS_CAL_TIME_LINES_OFF, 40397)                                                             \
    X(IDS_CAL_TIME_LINES_TODAY, 40398)                                                           \
    X(IDS_CAL_TIME_LINES_ALL_DAYS, 40399)                                                        \
    X(IDS_CAL_TOMORROW_TITLE_TITLE, 40400)                                                       \
    X(IDS_CAL_TOMORROW_TITLE_TIP, 40401)                                                         \
    X(IDS_CAL_COUNTERS_TITLE, 40402)                                                             \
    X(IDS_CAL_COUNTERS_TIP, 40403)                                                               \
    X(IDS_CAL_SMART_FOLDING_TITLE, 40404)                                                        \
    X(IDS_CAL_SMART_FOLDING_TIP, 40405)                                                          \
    X(IDS_CAL_FOLDING_TYPE_TITLE, 40406)                                                         \
    X(IDS_CAL_FOLDING_TYPE_TIP, 40407)                                                           \
    X(IDS_CAL_FREE_TIME_TITLE, 40415)                                                            \
    X(IDS_CAL_FREE_TIME_TIP, 40416)                                                              \
    X(IDS_CAL_TIME_LINES_START_TITLE, 40417)                                                     \
    X(IDS_CAL_TIME_LINES_START_TIP, 40418)                                                       \
    X(IDS_CAL_FORCE_TODAY_TITLE, 40419)                                                          \
    X(IDS_CAL_FORCE_TODAY_TIP, 40420)                                                            \
    X(IDS_CAL_DATE_IN_TODAY_TITLE, 40421)                                                        \
    X(IDS_CAL_DATE_IN_TODAY_TIP, 40422)                                                          \
    X(IDS_CAL_DAYS_COUNT_TITLE, 40423)                                                           \
    X(IDS_CAL_DAYS_COUNT_TIP, 40424)                                                             \
    X(IDS_CAL_WEEK_NUMBER_TITLE, 40425)                                                          \
    X(IDS_CAL_WEEK_NUMBER_TIP, 40426)                                                            \
    X(IDS_CAL_TIME_LINES_LENGTH_TITLE, 40949)                                                    \
    X(IDS_CAL_TIME_LINES_LENGTH_TIP, 40950)                                                      \
    X(IDS_CAL_TIME_LINES_VZOOM_TITLE, 40898)                                                     \
    X(IDS_CAL_TIME_LINES_VZOOM_TIP, 40899)                                                       \
    X(IDS_CAL_TIME_LINES_HZOOM_TITLE, 40900)                                                     \
    X(IDS_CAL_TIME_LINES_HZOOM_TIP, 40901)                                                       \
    X(IDS_CAL_DAY_TAP_TITLE, 40427)                                                              \
    X(IDS_CAL_DAY_TAP_TIP, 40428)                                                                \
    X(IDS_CAL_DAY_TAP_SHOW_DAY, 40429)                                                           \
    X(IDS_CAL_DAY_TAP_OPEN_CALENDAR, 40430)                                                      \
    X(IDS_CAL_DAY_TAP_NEW_APPT, 40431)                                                           \
    X(IDS_CAL_DAY_TAP_NOTHING, 40432)                                                            \
    X(IDS_CAL_POPUP_DATE_FORMAT_TITLE, 40433)                                                    \
    X(IDS_CAL_POPUP_DATE_FORMAT_TIP, 40434)                                                      \
    X(IDS_CAL_WEEK_START_TITLE, 40902)                                                           \
    X(IDS_CAL_WEEK_START_TIP, 40903)                                                             \
    X(IDS_CAL_FIRST_WORK_DAY_TITLE, 40904)                                                       \
    X(IDS_CAL_FIRST_WORK_DAY_TIP, 40905)                                                         \
    X(IDS_CAL_WEEK_NUMBERS_TITLE, 40437)                                                         \
    X(IDS_CAL_WEEK_NUMBERS_TIP, 40438)                                                           \
    X(IDS_CAL_POPUP_TIME_LINES_TITLE, 40906)                                                     \
    X(IDS_CAL_POPUP_TIME_LINES_TIP, 40907)                                                       \
    X(IDS_CAL_POPUP_TIME_LINES_OFF, 40916)                                                       \
    X(IDS_CAL_POPUP_TIME_LINES_BUSY, 40917)                                                      \
    X(IDS_CAL_POPUP_TIME_LINES_ALL, 40918)                                                       \
    X(IDS_CAL_CATEGORY_ICONS_TITLE, 40908)                                                       \
    X(IDS_CAL_CATEGORY_ICONS_TIP, 40909)                                                         \
    X(IDS_CAL_ICON_SIZE_TITLE, 40910)                                                            \
    X(IDS_CAL_ICON_SIZE_TIP, 40911)                                                              \
    X(IDS_CAL_DPAD_NAVIGATION_TITLE, 41200)                                                      \
    X(IDS_CAL_DPAD_NAVIGATION_TIP, 41201)                                                        \
    X(IDS_CAL_DPAD_NAVIGATION_DAYS, 41197)                                                       \
    X(IDS_CAL_DPAD_NAVIGATION_WEEKS, 41198)                                                      \
    X(IDS_CAL_DPAD_NAVIGATION_OFF, 41199)                                                        \
    X(IDS_CAL_PINNED_TITLE, 40912)                                                               \
    X(IDS_CAL_PINNED_TIP, 40913)                                                                 \
    X(IDS_CAL_PINNED_TOO_LOW_TEXT, 40914)                                                        \
    X(IDS_CAL_PINNED_TOO_LOW_CAPTION, 40915)                                                     \
    X(IDS_CAL_MAIL_LINE_TITLE, 40439)                                                            \
    X(IDS_CAL_MAIL_LINE_TIP, 40440)                                                              \
    X(IDS_CAL_MAIL_HIDE_EMPTY_TITLE, 40441)                                                      \
    X(IDS_CAL_MAIL_HIDE_EMPTY_TIP, 40442)                                                        \
    X(IDS_CAL_MAIL_TITLE_FORMAT_TITLE, 40443)                                                    \
    X(IDS_CAL_MAIL_TITLE_FORMAT_TIP, 40444)                                                      \
    X(IDS_CAL_MAIL_FORMAT_UNREAD, 40445)                                                         \
    X(IDS_CAL_MAIL_FORMAT_UNREAD_TOTAL, 40446)                                                   \
    X(IDS_CAL_MAIL_FORMAT_UNREAD_OF_TOTAL, 40447)                                                \
    X(IDS_CAL_MAIL_FORMAT_INBOX, 40448)                                                          \
    X(IDS_CAL_MAIL_PROGRAM_TITLE, 40449)                                                         \
    X(IDS_CAL_MAIL_PROGRAM_TIP, 40450)                                                           \
    X(IDS_CAL_MAIL_PROGRAM_MESSAGING, 40451)                                                     \
    X(IDS_CAL_MAIL_PROGRAM_CUSTOM, 40452)                                                        \
    X(IDS_CAL_MAIL_CUSTOM_PROGRAM_TIP, 40454)                                                    \
    X(IDS_CAL_MAIL_UNDER_TODAY_TITLE, 40455)                                                     \
    X(IDS_CAL_MAIL_UNDER_TODAY_TIP, 40456)                                                       \
    X(IDS_CAL_MAIL_COUNTER_TITLE, 40457)                                                         \
    X(IDS_CAL_MAIL_COUNTER_TIP, 40458)                                                           \
    X(IDS_CAL_TWO_DIGIT_HOURS_TITLE, 40459)                                                      \
    X(IDS_CAL_TWO_DIGIT_HOURS_TIP, 40460)                                                        \
    X(IDS_CAL_SKIN_COLLAPSED_TITLE, 40466)                                                       \
    X(IDS_CAL_SKIN_COLLAPSED_TIP, 40467)                                                         \
    X(IDS_CAL_HUMAN_TIME_TITLE, 40470)                                                           \
    X(IDS_CAL_HUMAN_TIME_TIP, 40471)                                                             \
    X(IDS_CAL_OVERDUE_TITLE_TITLE, 40472)                                                        \
    X(IDS_CAL_OVERDUE_TITLE_TIP, 40473)                                                          \
    X(IDS_CAL_UNDATED_TITLE_TITLE, 40474)                                                        \
    X(IDS_CAL_UNDATED_TITLE_TIP, 40475)                                                          \
    X(IDS_CAL_CUSTOM_DAY_TITLE_TIP, 40477)                                                       \
    X(IDS_CAL_TITLE_PART_DAY_NAME, 40310)                                                        \
    X(IDS_CAL_TITLE_PART_DATE, 40311)                                                            \
    X(IDS_CAL_TITLE_PART_DAYS_TO_GO, 40312)                                                      \
    X(IDS_CAL_TITLE_PART_WEEK_NUMBER, 40313)                                                     \
    X(IDS_CAL_TITLE_PART_COUNTERS, 40314)                                                        \
    X(IDS_CAL_TITLE_PART_CUSTOM, 40315)                                                          \
    X(IDS_CAL_APPT_ICON_LEFT1_LABEL, 40250)                                                      \
    X(IDS_CAL_APPT_ICON_LEFT2_LABEL, 40251)                                                      \
    X(IDS_CAL_APPT_ICON_RIGHT_LABEL, 40254)                                                      \
    X(IDS_CAL_PREVIEW_FORMAT, 40233)                                                             \
    X(IDS_CAL_PREVIEW_WITH_TIMES, 40234)                                                         \
    X(IDS_CAL_PREVIEW_WITHOUT_TIMES, 40235)                                                      \
    X(IDS_CAL_SAMPLE_SUBJECT, 40236)                                                             \
    X(IDS_CAL_SAMPLE_SECOND_LINE, 40237)

// Tasks page: section 0 is 40762 (not the shared general title), 1 and 2 are shared, 3 is 40766.
#define QL_TASKS_PAGE_STRING_IDS(X)                                                              \
    X(IDS_TSK_SECTION_GENERAL, 40762)                                                            \
    X(IDS_TSK_SECTION_CUSTOM_DATE, 40766)                                                        \
    X(IDS_TSK_DATE_LABEL, 40767)                                                                 \
    X(IDS_TSK_LIMIT_LABEL, 40768)                                                                \
    X(IDS_TSK_HIDE_COMPLETED, 40793)                                                             \
    X(IDS_TSK_HIDE_PAST_COMPLETED, 40794)                                                        \
    X(IDS_TSK_CONFIRM_COMPLETE, 40796)                                                           \
    X(IDS_TSK_REMOVE_UNDATED_TEXT, 40797)                                                        \
    X(IDS_TSK_HIDE_UNDATED, 40798)                                                               \
    X(IDS_TSK_FOLDING_LABEL, 40771)                                                              \
    X(IDS_TSK_USE_CUSTOM_DATE, 40775)                                                            \
    X(IDS_TSK_CUSTOM_START_LABEL, 40777)                                                         \
    X(IDS_TSK_CUSTOM_DUE_LABEL, 40778)                                                           \
    X(IDS_TSK_CUSTOM_SHOW_LABEL, 40776)                                                          \
    X(IDS_TSK_CUSTOM_SHOW_BOTH, 40799)                                                           \
    X(IDS_TSK_CUSTOM_SHOW_START, 40800)                                                          \
    X(IDS_TSK_CUSTOM_SHOW_DUE, 40801)                                                            \
    X(IDS_TSK_DATE_START_SUFFIX, 40779)                                                          \
    X(IDS_TSK_DATE_DUE_SUFFIX, 40780)                                                            \
    X(IDS_TSK_SAMPLE_SUBJECT, 41227)

#define QL_NOTES_PAGE_STRING_IDS(X)                                                              \
    X(IDS_NOTE_SECTION_FILE_TYPES, 41242)                                                        \
    X(IDS_NOTE_SECTION_FOLDERS, 41240)                                                           \
    X(IDS_NOTE_PREVIEW_LABEL, 41142)                                                             \
    X(IDS_NOTE_PREVIEW_CLOSED, 41143)                                                            \
    X(IDS_NOTE_PREVIEW_OPEN, 41144)                                                              \
    X(IDS_NOTE_PREVIEW_LAST, 41145)                                                              \
    X(IDS_NOTE_TYPE_NOTES, 41243)                                                                \
    X(IDS_NOTE_TYPE_TEXT, 41244)                                                                 \
    X(IDS_NOTE_TYPE_DOCUMENTS, 41245)                                                            \
    X(IDS_NOTE_TYPE_RECORDINGS, 41246)                                                           \
    X(IDS_NOTE_TYPE_PICTURES, 41247)                                                             \
    X(IDS_NOTE_TYPE_LISTS, 41252)                                                                \
    X(IDS_NOTE_FOLDERS_LABEL, 41241)                                                             \
    X(IDS_NOTE_REMOVE_FOLDER, 41265)                                                             \
    X(IDS_NOTE_FOLDER_NOT_ADDED_TEXT, 41266)                                                     \
    X(IDS_NOTE_FOLDER_NOT_ADDED_CAPTION, 41267)

// Contacts page (its search bar, title, D-pad and tap texts are shared with other pages).
#define QL_CONTACTS_PAGE_STRING_IDS(X)                                                           \
    X(IDS_CNT_CATEGORY_COLOR_TEXT, 41236)                                                        \
    X(IDS_CNT_LAYOUT_LABEL, 41192)                                                               \
    X(IDS_CNT_LAYOUT_COLUMNS, 41189)                                                             \
    X(IDS_CNT_LAYOUT_LIST, 41190)                                                                \
    X(IDS_CNT_LAYOUT_CARDS, 41191)                                                               \
    X(IDS_CNT_PHONE_WIDTH_LABEL, 41193)                                                          \
    X(IDS_CNT_HIDE_NO_PICTURE, 41194)

#define QL_MESSAGES_PAGE_STRING_IDS(X)                                                           \
    X(IDS_MSG_MARK_READ_ON_PREVIEW, 40974)                                                       \
    X(IDS_MSG_COUNTERS_NONE, 40976)                                                              \
    X(IDS_MSG_COUNTERS_UNREAD, 40977)                                                            \
    X(IDS_MSG_COUNTERS_UNREAD_TOTAL, 40978)

#define QL_SPECIAL_EVENTS_PAGE_STRING_IDS(X)                                                     \
    X(IDS_SE_SECTION_GENERAL, 40720)                                                             \
    X(IDS_SE_SECTION_FILTERS, 40721)                                                             \
    X(IDS_SE_DAYS_LABEL, 40724)                                                                  \
    X(IDS_SE_DAYS_WEEK, 38)                                                                      \
    X(IDS_SE_DAYS_TWO_WEEKS, 39)                                                                 \
    X(IDS_SE_DAYS_MONTH, 40)                                                                     \
    X(IDS_SE_ALERT_LABEL, 40725)                                                                 \
    X(IDS_SE_DATE_FORMAT_LABEL, 40726)                                                           \
    X(IDS_SE_DATE_FORMAT_DEFAULT, 40728)                                                         \
    X(IDS_SE_SEARCH_SPAN_LABEL, 40722)                                                           \
    X(IDS_SE_FILTER_ALERT_LABEL, 40723)                                                          \
    X(IDS_SE_FILTER_CATEGORY1_LABEL, 40716)                                                      \
    X(IDS_SE_FILTER_CATEGORY2_LABEL, 40717)                                                      \
    X(IDS_SE_FILTER_CATEGORY3_LABEL, 40718)                                                      \
    X(IDS_SE_FILTER_CATEGORY4_LABEL, 40719)

// Fonts page: the font list's labels (_ROW) and samples (_SAMPLE); rows 20 to 26 use their label
// as sample.
#define QL_FONTS_PAGE_STRING_IDS(X)                                                              \
    X(IDS_FNT_SECTION_GENERAL, 40572)                                                            \
    X(IDS_FNT_SECTION_COLORS, 41178)                                                             \
    X(IDS_FNT_SECTION_FONTS, 41179)                                                              \
    X(IDS_FNT_SIZE_LABEL, 40574)                                                                 \
    X(IDS_FNT_TITLES_SIZE_LABEL, 40575)                                                          \
    X(IDS_FNT_ADVANCED, 40576)                                                                   \
    X(IDS_FNT_FACE_LABEL, 40648)                                                                 \
    X(IDS_FNT_SHADOW_LABEL, 40645)                                                               \
    X(IDS_FNT_SHADOW_OFF, 40685)                                                                 \
    X(IDS_FNT_SHADOW_LIGHT, 40686)                                                               \
    X(IDS_FNT_SHADOW_DARK, 40687)                                                                \
    X(IDS_FNT_GLOW_LIGHT, 40688)                                                                 \
    X(IDS_FNT_GLOW_DARK, 40689)                                                                  \
    X(IDS_FNT_FORCE_CLEARTYPE, 40647)                                                            \
    X(IDS_FNT_EDIT, 40578)                                                                       \
    X(IDS_FNT_RESET_SIZES, 41290)                                                                \
    X(IDS_FNT_RESET_HEIGHTS_TEXT, 40206)                                                         \
    X(IDS_FNT_RESET_HEIGHTS_CAPTION, 40207)                                                      \
    X(IDS_FNT_PREVIEW_FONT_PREFIX, 40629)                                                        \
    X(IDS_FNT_PREVIEW_COLOR_PREFIX, 40630)                                                       \
    X(IDS_FNT_PREVIEW_SAMPLE, 40631)                                                             \
    X(IDS_FNT_PREVIEW_COLOR_LABEL, 40632)                                                        \
    X(IDS_FNT_ROW_GENERAL, 40579)                                                                \
    X(IDS_FNT_ROW_CAL_TASKS, 40580)                                                              \
    X(IDS_FNT_ROW_CAL_TASKS_OVERDUE, 40581)                                                      \
    X(IDS_FNT_ROW_CAL_TASKS_FUTURE, 40582)                                                       \
    X(IDS_FNT_ROW_CAL_TASKS_COMPLETED, 40583)                                                    \
    X(IDS_FNT_ROW_CAL_TASKS_UNDATED, 40584)                                                      \
    X(IDS_FNT_ROW_APPT_BUSY, 40585)                                                              \
    X(IDS_FNT_ROW_APPT_FREE, 40586)                                                              \
    X(IDS_FNT_ROW_APPT_OUT_OF_OFFICE, 40587)                                                     \
    X(IDS_FNT_ROW_APPT_TENTATIVE, 40588)                                                         \
    X(IDS_FNT_ROW_APPT_PAST, 40589)                                                              \
    X(IDS_FNT_ROW_APPT_COMPLETED, 40590)                                                         \
    X(IDS_FNT_ROW_MAIL_READ, 40591)                                                              \
    X(IDS_FNT_ROW_MAIL_UNREAD, 40592)                                                            \
    X(IDS_FNT_ROW_DAY_TITLES, 40593)                                                             \
    X(IDS_FNT_ROW_TASK_OVERDUE, 40594)                                                           \
    X(IDS_FNT_ROW_TASK_DUE_TODAY, 40595)                                                         \
    X(IDS_FNT_ROW_TASK_NO_DUE, 40596)                                                            \
    X(IDS_FNT_ROW_TASK_FUTURE, 40597)                                                            \
    X(IDS_FNT_ROW_TASK_GROUP_TITLES, 40598)                                                      \
    X(IDS_FNT_ROW_NOTE_ITEMS, 40957)                                                             \
    X(IDS_FNT_ROW_NOTE_TITLES, 40958)                                                            \
    X(IDS_FNT_ROW_CONTACT_ITEMS, 41182)                                                          \
    X(IDS_FNT_ROW_CONTACT_TITLES, 41183)                                                         \
    X(IDS_FNT_ROW_MSG_UNREAD, 40959)                                                             \
    X(IDS_FNT_ROW_MSG_READ, 40960)                                                               \
    X(IDS_FNT_ROW_MSG_TITLES, 40961)                                                             \
    X(IDS_FNT_ROW_SE_GENERAL, 40599)                                                             \
    X(IDS_FNT_ROW_SE_FILTER1, 40600)                                                             \
    X(IDS_FNT_ROW_SE_FILTER2, 40601)                                                             \
    X(IDS_FNT_ROW_SE_FILTER3, 40602)                                                             \
    X(IDS_FNT_ROW_SE_FILTER4, 40603)                                                             \
    X(IDS_FNT_ROW_SE_GROUP_TITLES, 41099)                                                        \
    X(IDS_FNT_SAMPLE_GENERAL, 40604)                                                             \
    X(IDS_FNT_SAMPLE_CAL_TASKS, 40605)                                                           \
    X(IDS_FNT_SAMPLE_CAL_TASKS_OVERDUE, 40606)                                                   \
    X(IDS_FNT_SAMPLE_CAL_TASKS_FUTURE, 40607)                                                    \
    X(IDS_FNT_SAMPLE_CAL_TASKS_COMPLETED, 40608)                                                 \
    X(IDS_FNT_SAMPLE_CAL_TASKS_UNDATED, 40609)                                                   \
    X(IDS_FNT_SAMPLE_APPT_BUSY, 40610)                                                           \
    X(IDS_FNT_SAMPLE_APPT_FREE, 40611)                                                           \
    X(IDS_FNT_SAMPLE_APPT_OUT_OF_OFFICE, 40612)                                                  \
    X(IDS_FNT_SAMPLE_APPT_TENTATIVE, 40613)                                                      \
    X(IDS_FNT_SAMPLE_APPT_PAST, 40614)                                                           \
    X(IDS_FNT_SAMPLE_APPT_COMPLETED, 40615)                                                      \
    X(IDS_FNT_SAMPLE_MAIL_READ, 40616)                                                           \
    X(IDS_FNT_SAMPLE_MAIL_UNREAD, 40617)                                                         \
    X(IDS_FNT_SAMPLE_DAY_TITLES, 40618)                                                          \
    X(IDS_FNT_SAMPLE_TASK_OVERDUE, 40619)                                                        \
    X(IDS_FNT_SAMPLE_TASK_DUE_TODAY, 40620)                                                      \
    X(IDS_FNT_SAMPLE_TASK_NO_DUE, 40621)                                                         \
    X(IDS_FNT_SAMPLE_TASK_FUTURE, 40622)                                                         \
    X(IDS_FNT_SAMPLE_TASK_GROUP_TITLES, 40623)                                                   \
    X(IDS_FNT_SAMPLE_SE_GENERAL, 40624)                                                          \
    X(IDS_FNT_SAMPLE_SE_FILTER1, 40625)                                                          \
    X(IDS_FNT_SAMPLE_SE_FILTER2, 40626)                                                          \
    X(IDS_FNT_SAMPLE_SE_FILTER3, 40627)                                                          \
    X(IDS_FNT_SAMPLE_SE_FILTER4, 40628)                                                          \
    X(IDS_FNT_SAMPLE_SE_GROUP_TITLES, 41100)

// Colors page: item i is listed as 40505 + i and described by 40522 + 2 * i; the scheme
// messages follow.
#define QL_COLORS_PAGE_STRING_IDS(X)                                                             \
    X(IDS_CLR_SECTION_COLORS, 40951)                                                             \
    X(IDS_CLR_SECTION_SCHEMES, 40952)                                                            \
    X(IDS_CLR_CHANGE, 40504)                                                                     \
    X(IDS_CLR_ITEM_SEPARATOR, 40505)                                                             \
    X(IDS_CLR_ITEM_SHADOW, 40506)                                                                \
    X(IDS_CLR_ITEM_GENERAL_TEXT, 40507)                                                          \
    X(IDS_CLR_ITEM_HIGHLIGHT_BG, 40508)                                                          \
    X(IDS_CLR_ITEM_HIGHLIGHT_TEXT, 40509)                                                        \
    X(IDS_CLR_ITEM_TIME_LINES_BG, 40510)                                                         \
    X(IDS_CLR_ITEM_TIME_LINES, 40511)                                                            \
    X(IDS_CLR_ITEM_DAY_SEPARATOR, 40512)                                                         \
    X(IDS_CLR_ITEM_POPUP_BG, 40513)                                                              \
    X(IDS_CLR_ITEM_POPUP_TODAY, 40514)                                                           \
    X(IDS_CLR_ITEM_POPUP_HIGHLIGHT, 40515)                                                       \
    X(IDS_CLR_ITEM_TASK_SEPARATOR, 40516)                                                        \
    X(IDS_CLR_ITEM_STATUS_FREE, 40517)                                                           \
    X(IDS_CLR_ITEM_STATUS_BUSY, 40518)                                                           \
    X(IDS_CLR_ITEM_STATUS_TENTATIVE, 40519)                                                      \
    X(IDS_CLR_ITEM_STATUS_OUT_OF_OFFICE, 40520)                                                  \
    X(IDS_CLR_ABOUT_SEPARATOR, 40522)                                                            \
    X(IDS_CLR_ABOUT_SHADOW, 40524)                                                               \
    X(IDS_CLR_ABOUT_GENERAL_TEXT, 40526)                                                         \
    X(IDS_CLR_ABOUT_HIGHLIGHT_BG, 40528)                                                         \
    X(IDS_CLR_ABOUT_HIGHLIGHT_TEXT, 40530)                                                       \
    X(IDS_CLR_ABOUT_TIME_LINES_BG, 40532)                                                        \
    X(IDS_CLR_ABOUT_TIME_LINES, 40534)                                                           \
    X(IDS_CLR_ABOUT_DAY_SEPARATOR, 40536)                                                        \
    X(IDS_CLR_ABOUT_POPUP_BG, 40538)                                                             \
    X(IDS_CLR_ABOUT_POPUP_TODAY, 40540)                                                          \
    X(IDS_CLR_ABOUT_POPUP_HIGHLIGHT, 40542)                                                      \
    X(IDS_CLR_ABOUT_TASK_SEPARATOR, 40544)                                                       \
    X(IDS_CLR_ABOUT_STATUS_FREE, 40546)                                                          \
    X(IDS_CLR_ABOUT_STATUS_BUSY, 40548)                                                          \
    X(IDS_CLR_ABOUT_STATUS_TENTATIVE, 40550)                                                     \
    X(IDS_CLR_ABOUT_STATUS_OUT_OF_OFFICE, 40552)                                                 \
    X(IDS_CLR_SCHEMES_HELP, 40484)                                                               \
    X(IDS_CLR_SCHEME_LOAD, 40501)                                                                \
    X(IDS_CLR_SCHEME_DELETE, 40502)                                                              \
    X(IDS_CLR_SCHEME_SAVE, 40503)                                                                \
    X(IDS_SCHEME_NO_SELECTION_TEXT, 40485)                                                       \
    X(IDS_SCHEME_NO_SELECTION_CAPTION, 40486)                                                    \
    X(IDS_SCHEME_DELETE_TEXT, 40487)                                                             \
    X(IDS_SCHEME_DELETE_CAPTION, 40488)                                                          \
    X(IDS_SCHEME_NO_NAME_TEXT, 40489)                                                            \
    X(IDS_SCHEME_NO_NAME_CAPTION, 40490)                                                         \
    X(IDS_SCHEME_EXISTS_TEXT, 40491)                                                             \
    X(IDS_SCHEME_EXISTS_CAPTION, 40492)                                                          \
    X(IDS_SCHEME_SAVED_TEXT, 40493)                                                              \
    X(IDS_SCHEME_SAVED_CAPTION, 40494)                                                           \
    X(IDS_SCHEME_LOAD_TEXT, 40495)                                                               \
    X(IDS_SCHEME_LOAD_CAPTION, 40496)                                                            \
    X(IDS_SCHEME_CANNOT_OPEN_TEXT, 40497)                                                        \
    X(IDS_SCHEME_CANNOT_OPEN_CAPTION, 40498)                                                     \
    X(IDS_SCHEME_DAMAGED_TEXT, 40499)                                                            \
    X(IDS_SCHEME_DAMAGED_CAPTION, 40500)

#define QL_PIM_PAGE_STRING_IDS(X)                                                                \
    X(IDS_PIM_SECTION_SOFTWARE, 40554)                                                           \
    X(IDS_PIM_SECTION_OPTIONS, 40555)                                                            \
    X(IDS_PIM_SOFTWARE_LABEL, 40556)                                                             \
    X(IDS_PIM_POCKET_OUTLOOK, 22)                                                                \
    X(IDS_PIM_POCKET_INFORMANT, 23)                                                              \
    X(IDS_PIM_AGENDA_FUSION, 82)                                                                 \
    X(IDS_PIM_AGENDA_ONE, 24)                                                                    \
    X(IDS_PIM_OVERRIDE_ICONS, 40561)                                                             \
    X(IDS_PIM_OVERRIDE_COLORS, 40562)                                                            \
    X(IDS_PIM_LEAVE_AF_RUNNING, 40563)                                                           \
    X(IDS_PIM_HIDE_ABC, 40564)

// Tabs page and its Today plug-in chooser (dialog 311: 40837 on static 1002, 40838 on 1006).
#define QL_TABS_PAGE_STRING_IDS(X)                                                               \
    X(IDS_TABS_SECTION_DEFAULT, 41140)                                                           \
    X(IDS_TABS_ADD, 40739)                                                                       \
    X(IDS_TABS_REMOVE, 40738)                                                                    \
    X(IDS_TABS_TIMEOUT_LABEL, 41153)                                                             \
    X(IDS_TABS_TIMEOUT_1_MIN, 41164)                                                             \
    X(IDS_TABS_TIMEOUT_5_MIN, 41165)                                                             \
    X(IDS_TABS_TIMEOUT_15_MIN, 41166)                                                            \
    X(IDS_TABS_TIMEOUT_30_MIN, 41167)                                                            \
    X(IDS_TABS_TIMEOUT_1_HOUR, 41168)                                                            \
    X(IDS_TABS_TIMEOUT_2_HOURS, 41169)                                                           \
    X(IDS_TABS_DEFAULT_LABEL, 41154)                                                             \
    X(IDS_TABS_DEFAULT_AT_START, 41181)                                                          \
    X(IDS_TABS_ALREADY_TAB_TEXT, 40749)                                                          \
    X(IDS_TABS_ALREADY_TAB_CAPTION, 40750)                                                       \
    X(IDS_TABS_DISABLE_PLUGIN_TEXT, 40736)                                                       \
    X(IDS_TABS_DISABLE_PLUGIN_CAPTION, 40737)                                                    \
    X(IDS_TABS_CHOOSER_INTRO, 40837)                                                             \
    X(IDS_TABS_CHOOSER_NOTE, 40838)

#define QL_CATEGORIES_PAGE_STRING_IDS(X)                                                         \
    X(IDS_CAT_SECTION_CATEGORIES, 41170)                                                         \
    X(IDS_CAT_SECTION_FILTERS, 41173)                                                            \
    X(IDS_CAT_USE_FILTERS, 40565)                                                                \
    X(IDS_CAT_ICON, 41171)                                                                       \
    X(IDS_CAT_COLOR, 41172)                                                                      \
    X(IDS_CAT_FILTER_LABEL, 40566)                                                               \
    X(IDS_CAT_RENAME, 40569)                                                                     \
    X(IDS_CAT_FILTER_VISIBLE, 40568)                                                             \
    X(IDS_CAT_FILTER_UNCATEGORIZED, 40567)                                                       \
    X(IDS_CAT_SENSITIVITY_LABEL, 40953)                                                          \
    X(IDS_CAT_SENSITIVITY_ANY, 40954)                                                            \
    X(IDS_CAT_SENSITIVITY_ALL, 40955)                                                            \
    X(IDS_CAT_SENSITIVITY_EXCLUDE, 40956)                                                        \
    X(IDS_CAT_CHECK_ALL, 40570)                                                                  \
    X(IDS_CAT_CHECK_NONE, 40571)                                                                 \
    X(IDS_CAT_ICONS_FOLDER_LABEL, 40480)                                                         \
    X(IDS_CAT_ICON_NAME_TEXT, 41354)                                                             \
    X(IDS_CAT_ICON_NAME_CAPTION, 41355)

// Icon chooser: its two titles and the first entry of each mode.
#define QL_ICON_CHOOSER_STRING_IDS(X)                                                            \
    X(IDS_ICON_CHOOSER_TITLE, 41350)                                                             \
    X(IDS_ICON_SET_TITLE, 41351)                                                                 \
    X(IDS_ICON_NONE, 41352)                                                                      \
    X(IDS_ICON_SET_STANDARD, 41353)

// Font dialog (template 210): the texts set on its controls at start.
#define QL_FONT_DIALOG_STRING_IDS(X)                                                             \
    X(IDS_FONTDLG_ITALIC, 40822)                                                                 \
    X(IDS_FONTDLG_BOLD, 40823)                                                                   \
    X(IDS_FONTDLG_UNDERLINE, 40824)                                                              \
    X(IDS_FONTDLG_STRIKEOUT, 40825)                                                              \
    X(IDS_FONTDLG_SIZE_LABEL, 40826)                                                             \
    X(IDS_FONTDLG_COLOR_LABEL, 40821)

// File and folder browser: the texts a caller hands to it; the caption of both error messages
// is IDS_BROWSER_ERROR_CAPTION.
#define QL_BROWSER_STRING_IDS(X)                                                                 \
    X(IDS_BROWSER_FILE_NAME_LABEL, 40819)                                                        \
    X(IDS_BROWSER_EXTENSION_LABEL, 41228)                                                        \
    X(IDS_BROWSER_EMPTY_NAME, 41229)                                                             \
    X(IDS_BROWSER_ILLEGAL_NAME, 41230)                                                           \
    X(IDS_BROWSER_ERROR_CAPTION, 41231)                                                          \
    X(IDS_BROWSER_FOLDER_LABEL, 41232)                                                           \
    X(IDS_BROWSER_UP_FOLDER, 41233)

#define QL_STRING_IDS(X)                                                                         \
    QL_SHARED_STRING_IDS(X)                                                                      \
    QL_MAIN_STRING_IDS(X)                                                                        \
    QL_GENERAL_PAGE_STRING_IDS(X)                                                                \
    QL_CALENDAR_PAGE_STRING_IDS(X)                                                               \
    QL_TASKS_PAGE_STRING_IDS(X)                                                                  \
    QL_NOTES_PAGE_STRING_IDS(X)                                                                  \
    QL_CONTACTS_PAGE_STRING_IDS(X)                                                               \
    QL_MESSAGES_PAGE_STRING_IDS(X)                                                               \
    QL_SPECIAL_EVENTS_PAGE_STRING_IDS(X)                                                         \
    QL_FONTS_PAGE_STRING_IDS(X)                                                                  \
    QL_COLORS_PAGE_STRING_IDS(X)                                                                 \
    QL_PIM_PAGE_STRING_IDS(X)                                                                    \
    QL_TABS_PAGE_STRING_IDS(X)                                                                   \
    QL_CATEGORIES_PAGE_STRING_IDS(X)                                                             \
    QL_ICON_CHOOSER_STRING_IDS(X)                                                                \
    QL_FONT_DIALOG_STRING_IDS(X)                                                                 \
    QL_BROWSER_STRING_IDS(X)

#ifndef RC_INVOKED
#include <windows.h>

#define QL_STRING_ID_ENUMERATOR(name, id) name = id,
enum StringId : UINT { QL_STRING_IDS(QL_STRING_ID_ENUMERATOR) };
#undef QL_STRING_ID_ENUMERATOR

// Every string id the program loads from the language library.
#define QL_STRING_ID_VALUE(name, id) static_cast<UINT>(id),
inline constexpr UINT kAllStringIds[] = {QL_STRING_IDS(QL_STRING_ID_VALUE)};
#undef QL_STRING_ID_VALUE
inline constexpr int kAllStringIdCount = static_cast<int>(sizeof kAllStringIds / sizeof kAllStringIds[0]);

// Ids a message box loads: the text; the caption is the id that follows.
inline constexpr UINT kMessageTextIds[] = {
    IDS_SELECT_ITEM_FIRST_TEXT,  IDS_QUIT_TEXT,
    IDS_EXPORTED_TEXT,           IDS_IMPORT_FAILED_TEXT,
    IDS_IMPORTED_TEXT,           IDS_CAL_PINNED_TOO_LOW_TEXT,
    IDS_NOTE_FOLDER_NOT_ADDED_TEXT, IDS_FNT_RESET_HEIGHTS_TEXT,
    IDS_SCHEME_NO_SELECTION_TEXT, IDS_SCHEME_DELETE_TEXT,
    IDS_SCHEME_NO_NAME_TEXT,     IDS_SCHEME_EXISTS_TEXT,
    IDS_SCHEME_SAVED_TEXT,       IDS_SCHEME_LOAD_TEXT,
    IDS_SCHEME_CANNOT_OPEN_TEXT, IDS_SCHEME_DAMAGED_TEXT,
    IDS_TABS_ALREADY_TAB_TEXT,   IDS_TABS_DISABLE_PLUGIN_TEXT,
    IDS_CAT_ICON_NAME_TEXT,
};

// Texts used as printf formats, with the one "%d" each is given.
inline constexpr UINT kNumberFormatIds[] = {IDS_CAL_PREVIEW_FORMAT, IDS_CAL_PINNED_TIP, IDS_CAL_PINNED_TOO_LOW_TEXT};
#endif
