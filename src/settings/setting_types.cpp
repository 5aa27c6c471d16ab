#include "settings/setting_types.h"

#include <cmath>
#include <cstring>
#include <cwchar>

#include "settings/key_table.h"
#include "settings/registry_values.h"
#include "support/display_scale.h"
#include "support/handles.h"

// ---- Setting ----------------------------------------------------------------------------------

Setting::Setting(SettingGroup* group, unsigned keyIndex, const wchar_t* name, unsigned flags)
    : valueName(name), keyIndex(keyIndex), flags(flags) {
    if (group) group->add(this);
}

namespace {

// Writes a dirty setting into `key`, or into its own key (created) when `key` is null.
void SaveOnItsOwn(Setting& setting, HKEY key) {
    if (setting.dirty != 1) return;
    if (key) return setting.save(key);
    RegKey own = OpenSettingKey(setting.keyIndex);
    setting.save(own.get());
}

}  // namespace

// ---- IntSetting -------------------------------------------------------------------------------

IntSetting::IntSetting(SettingGroup* group, const wchar_t* name, DWORD defaultValue, unsigned flags)
    : Setting(group, group ? group->keyIndex() : kKeyCount, name, flags),
      value(defaultValue),
      defaultValue(defaultValue),
      designDefault(defaultValue) {}

IntSetting::IntSetting(unsigned keyIndex, const wchar_t* name, DWORD defaultValue)
    : Setting(nullptr, keyIndex, name, kSaved), value(defaultValue), defaultValue(defaultValue),
      designDefault(defaultValue) {}

void IntSetting::load(HKEY key, const LoadContext& context) {
    DWORD loadDefault = designDefault;
    if (flags & kScaledDefault) loadDefault = static_cast<DWORD>(ScaleForDisplay(static_cast<int>(designDefault)));
    if (flags & kFirstDayOfWeekDefault) loadDefault = context.firstDayOfWeek;
    loadWithDefault(key, loadDefault);
}

DWORD IntSetting::loadWithDefault(HKEY key, DWORD newDefault) {
    defaultValue = newDefault;
    dirty = 0;
    value = ReadDword(key, valueName.c_str(), newDefault);
    return value;
}

void IntSetting::save(HKEY key) {
    if (dirty != 1) return;
    WriteDwordOrDelete(key, valueName.c_str(), value, defaultValue);
}

void SaveInt(IntSetting& setting, HKEY key) { SaveOnItsOwn(setting, key); }

// ---- StringSetting ----------------------------------------------------------------------------

StringSetting::StringSetting(SettingGroup* group, const wchar_t* name, const wchar_t* defaultText, unsigned flags,
                             const WString* defaultBase)
    : Setting(group, group ? group->keyIndex() : kKeyCount, name, flags),
      defaultText_(defaultText),
      defaultBase_(defaultBase) {
    defaultValue.assign(defaultText);
    value.assign(defaultText);
}

void StringSetting::load(HKEY key, const LoadContext&) {
    if (defaultBase_) {
        defaultValue.assign(defaultBase_->c_str());
        defaultValue.append(defaultText_);
    } else {
        defaultValue.assign(defaultText_);
    }
    dirty = 0;
    ReadString(key, valueName.c_str(), value, defaultValue.c_str());
}

void StringSetting::save(HKEY key) {
    if (dirty != 1) return;
    WriteStringOrDelete(key, valueName.c_str(), value.c_str(), defaultValue.c_str());
}

void SaveStringValue(StringSetting& setting, HKEY key) { SaveOnItsOwn(setting, key); }

// ---- BitSetSetting ----------------------------------------------------------------------------

BitSetSetting::BitSetSetting(SettingGroup* group, const wchar_t* name, int bitCount, bool fillOnes)
    : Setting(group, group->keyIndex(), name, kNeverSaved),
      byteCount(static_cast<DWORD>(std::ceil(bitCount * 0.125))),
      bitCount_(bitCount),
      fillOnes_(fillOnes) {
    bits.reset(new BYTE[byteCount]);
    memset(bits.get(), fillOnes ? 0xFF : 0x00, byteCount);
}

void BitSetSetting::load(HKEY key, const LoadContext&) {
    byteCount = static_cast<DWORD>(std::ceil(bitCount_ * 0.125));
    bits.reset(new BYTE[byteCount]);
    memset(bits.get(), fillOnes_ ? 0xFF : 0x00, byteCount);
    dirty = 0;
    if (!key) return;
    DWORD type = 0;
    DWORD size = 0;
    if (RegQueryValueExW(key, valueName.c_str(), nullptr, &type, nullptr, &size) != ERROR_SUCCESS ||
        type != REG_BINARY || size != byteCount)
        return;
    // Read into a scratch copy so that a value changed in between cannot leave half a buffer.
    std::unique_ptr<BYTE[]> stored(new BYTE[byteCount]);
    if (RegQueryValueExW(key, valueName.c_str(), nullptr, &type, stored.get(), &size) == ERROR_SUCCESS &&
        type == REG_BINARY && size == byteCount)
        bits = std::move(stored);
}

bool BitSetSetting::bit(int index) const {
    if (index < 0 || index >= bitCount_) return false;
    return (bits[index / 8] >> (index % 8)) & 1;
}

// ---- FontSetting ------------------------------------------------------------------------------

namespace {

WString Suffixed(const wchar_t* base, const wchar_t* suffix) {
    WString name(base);
    name.append(suffix);
    return name;
}

}  // namespace

FontSetting::FontSetting(SettingGroup* group, const wchar_t* baseName, DWORD weightDefault, bool strikeOutDefault)
    : Setting(group, group->keyIndex(), baseName, kSaved),
      weight(group->keyIndex(), Suffixed(baseName, L"lfWeight").c_str(), weightDefault),
      italic(group->keyIndex(), Suffixed(baseName, L"lfItalic").c_str(), 0),
      underline(group->keyIndex(), Suffixed(baseName, L"lfUnderline").c_str(), 0),
      strikeOut(group->keyIndex(), Suffixed(baseName, L"lfStrikeOut").c_str(), strikeOutDefault ? 1 : 0),
      height(group->keyIndex(), Suffixed(baseName, L"lfHeight").c_str(), 12),
      colour(group->keyIndex(), Suffixed(baseName, L"lfColor").c_str(), 0xFFFFFFFF),
      weightDefault_(weightDefault),
      strikeOutDefault_(strikeOutDefault) {
    memset(&font, 0, sizeof font);
}

void FontSetting::load(HKEY key, const LoadContext& context) {
    memset(&font, 0, sizeof font);
    font.lfQuality = context.forceClearType && context.forceClearType->value ? 5 : 0;
    wcsncpy(font.lfFaceName, context.fontFace ? context.fontFace->c_str() : L"Tahoma", LF_FACESIZE - 1);
    dirty = 0;
    font.lfWeight = static_cast<LONG>(weight.loadWithDefault(key, weightDefault_));
    font.lfItalic = static_cast<BYTE>(italic.loadWithDefault(key, 0));
    font.lfUnderline = static_cast<BYTE>(underline.loadWithDefault(key, 0));
    font.lfStrikeOut = static_cast<BYTE>(strikeOut.loadWithDefault(key, strikeOutDefault_ ? 1 : 0));
    font.lfHeight = static_cast<LONG>(height.loadWithDefault(key, static_cast<DWORD>(ScaleForDisplay(12))));
    colour.loadWithDefault(key, 0xFFFFFFFF);
}

void FontSetting::save(HKEY key) {
    for (IntSetting* part : {&weight, &italic, &underline, &strikeOut, &height, &colour}) part->save(key);
}

void FontSetting::markDirty() {
    dirty = 1;
    for (IntSetting* part : {&weight, &italic, &underline, &strikeOut, &height, &colour}) part->markDirty();
}

IntSetting& FontSetting::apply(const LOGFONTW& newFont, COLORREF newColour) {
    font.lfHeight = newFont.lfHeight;
    SetInt(height, static_cast<DWORD>(newFont.lfHeight));
    font.lfItalic = newFont.lfItalic;
    SetInt(italic, newFont.lfItalic);
    font.lfStrikeOut = newFont.lfStrikeOut;
    SetInt(strikeOut, newFont.lfStrikeOut);
    font.lfUnderline = newFont.lfUnderline;
    SetInt(underline, newFont.lfUnderline);
    font.lfWeight = newFont.lfWeight;
    SetInt(weight, static_cast<DWORD>(newFont.lfWeight));
    SetInt(colour, newColour);
    return colour;
}

// ---- SettingGroup -----------------------------------------------------------------------------

void SettingGroup::loadAll(HKEY key, const LoadContext& context) {
    for (Setting* setting : settings_) setting->load(key, context);
}

void SettingGroup::saveAll(HKEY key) {
    for (Setting* setting : settings_)
        if (!setting->neverSaved()) setting->save(key);
}

void SettingGroup::markAllDirty() {
    for (Setting* setting : settings_) setting->markDirty();
}
