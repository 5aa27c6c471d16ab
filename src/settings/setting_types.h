#pragma once
// The setting objects the settings record is made of. Each knows its registry value name, its
// key index, its default and whether a page changed it (`dirty`); groups hold the settings of one
// registry key in the order they are loaded and saved.
#include <windows.h>

#include <memory>
#include <vector>

#include "support/wide_string.h"

class SettingGroup;

// Options of a setting, combined with |.
enum SettingFlags : unsigned {
    kSaved = 0,
    kNeverSaved = 1,             // the plug-in's own running state or another program's value
    kScaledDefault = 2,          // the default is passed through ScaleForDisplay at load time
    kFirstDayOfWeekDefault = 4,  // the default is the locale's first day of the week
};

// Values of the environment that defaults and fonts are computed from at load time.
// The font settings read the face and ClearType settings when they load, after those have loaded.
class IntSetting;
class StringSetting;
struct LoadContext {
    DWORD firstDayOfWeek = 0;
    const StringSetting* fontFace = nullptr;     // none: "Tahoma"
    const IntSetting* forceClearType = nullptr;  // none: no ClearType
};

class Setting {
public:
    virtual ~Setting() = default;
    Setting(const Setting&) = delete;
    Setting& operator=(const Setting&) = delete;

    // Reads the value from an open key (a null key gives the default) and clears `dirty`.
    virtual void load(HKEY key, const LoadContext& context) = 0;
    // Writes the value into an open key if it is dirty (write-or-delete against the default).
    virtual void save(HKEY key) = 0;
    virtual void markDirty() { dirty = 1; }
    bool neverSaved() const { return (flags & kNeverSaved) != 0; }

    int dirty = 0;
    WString valueName;
    unsigned keyIndex;
    unsigned flags;

protected:
    // A setting given a group joins that group's list; one without (a font's parts) does not.
    Setting(SettingGroup* group, unsigned keyIndex, const wchar_t* name, unsigned flags);
};

class IntSetting : public Setting {
public:
    IntSetting(SettingGroup* group, const wchar_t* name, DWORD defaultValue, unsigned flags = kSaved);
    // A setting outside any group (the parts of a font setting).
    IntSetting(unsigned keyIndex, const wchar_t* name, DWORD defaultValue);

    void load(HKEY key, const LoadContext& context) override;
    void save(HKEY key) override;
    // Reads with an explicit default, which the setting keeps for later saves.
    DWORD loadWithDefault(HKEY key, DWORD defaultValue);
    void set(DWORD newValue) {
        value = newValue;
        dirty = 1;
    }
    int asInt() const { return static_cast<int>(value); }

    DWORD value;
    DWORD defaultValue;
    DWORD designDefault;  // the default as declared, before scaling or locale rules
};

class StringSetting : public Setting {
public:
    // With `defaultBase`, the default is that text (read at load time) followed by `defaultText`.
    StringSetting(SettingGroup* group, const wchar_t* name, const wchar_t* defaultText, unsigned flags = kSaved,
                  const WString* defaultBase = nullptr);

    void load(HKEY key, const LoadContext& context) override;
    void save(HKEY key) override;
    void set(const wchar_t* text) {
        value.assign(text);
        dirty = 1;
    }
    const wchar_t* c_str() const { return value.c_str(); }

    WString value;
    WString defaultValue;

private:
    const wchar_t* defaultText_;
    const WString* defaultBase_;
};

// A fixed-size REG_BINARY value; it is read but never written by this program.
class BitSetSetting : public Setting {
public:
    BitSetSetting(SettingGroup* group, const wchar_t* name, int bitCount, bool fillOnes = false);

    // Accepts the stored value only if it is REG_BINARY of exactly `byteCount` bytes.
    void load(HKEY key, const LoadContext& context) override;
    void save(HKEY) override {}
    bool bit(int index) const;

    std::unique_ptr<BYTE[]> bits;
    DWORD byteCount;

private:
    int bitCount_;
    bool fillOnes_;
};

// A logical font with its colour: six DWORD values named base name + "lfWeight", "lfItalic",
// "lfUnderline", "lfStrikeOut", "lfHeight", "lfColor".
class FontSetting : public Setting {
public:
    FontSetting(SettingGroup* group, const wchar_t* baseName, DWORD weightDefault, bool strikeOutDefault = false);

    // Face from the context, quality 5 (ClearType) when the context forces it, height default
    // ScaleForDisplay(12), colour default 0xFFFFFFFF.
    void load(HKEY key, const LoadContext& context) override;
    void save(HKEY key) override;
    void markDirty() override;
    // Copies height, italic, strike-out, underline and weight into the logical font and (marking
    // each dirty) into the parts, sets the colour and marks it dirty; returns the colour part.
    IntSetting& apply(const LOGFONTW& newFont, COLORREF newColour);

    LOGFONTW font;
    IntSetting weight;
    IntSetting italic;
    IntSetting underline;
    IntSetting strikeOut;
    IntSetting height;
    IntSetting colour;

private:
    DWORD weightDefault_;
    bool strikeOutDefault_;
};

// The settings of one registry key, in load order.
class SettingGroup {
public:
    explicit SettingGroup(unsigned keyIndex) : keyIndex_(keyIndex) {}
    SettingGroup(const SettingGroup&) = delete;
    SettingGroup& operator=(const SettingGroup&) = delete;

    unsigned keyIndex() const { return keyIndex_; }
    const std::vector<Setting*>& settings() const { return settings_; }
    void add(Setting* setting) { settings_.push_back(setting); }

    void loadAll(HKEY key, const LoadContext& context);
    // Writes every dirty setting that is not marked kNeverSaved.
    void saveAll(HKEY key);
    void markAllDirty();

private:
    unsigned keyIndex_;
    std::vector<Setting*> settings_;
};

// The setters pages use: they store the value and mark the setting dirty, even when unchanged.
inline void SetInt(IntSetting& setting, DWORD value) { setting.set(value); }
inline void SetString(StringSetting& setting, const wchar_t* text) { setting.set(text); }

// Writes one setting on its own: into `key`, or into its own key (created) when `key` is null.
void SaveInt(IntSetting& setting, HKEY key = nullptr);
void SaveStringValue(StringSetting& setting, HKEY key = nullptr);
