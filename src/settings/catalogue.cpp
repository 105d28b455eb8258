#include "settings/catalogue.h"

#include "base/lenient_number.h"
#include "base/number_text.h"
#include "base/text.h"

namespace kelvane {
namespace {

std::optional<int> read_number(const SettingsFile& file, const wchar_t* section,
                               const std::wstring& key) {
    const std::wstring text = file.ReadIniValue(section, key);
    if (text.empty()) return std::nullopt;
    return lenient_integer(text);
}

std::wstring numbered_key(const wchar_t* key, int n) {
    return key + std::to_wstring(n);
}

} // namespace

int read_setting(const SettingsFile& file, const NumberSetting& setting) {
    const auto value = read_number(file, setting.section, setting.key);
    const bool usable = value && *value >= setting.lowest && *value <= setting.highest;
    return usable ? *value : setting.when_missing;
}

std::optional<int> read_setting(const SettingsFile& file, const OptionalSetting& setting) {
    return read_number(file, setting.section, setting.key);
}

std::wstring read_setting(const SettingsFile& file, const DecimalSetting& setting) {
    const std::wstring text = file.ReadIniValue(setting.section, setting.key);
    return text.empty() ? setting.when_missing : text;
}

std::wstring read_setting(const SettingsFile& file, const PathSetting& setting) {
    return file.ReadIniValue(setting.section, setting.key, kLongestPath);
}

void write_setting(const SettingsFile& file, const NumberSetting& setting, int value) {
    file.WriteIniValue(setting.section, setting.key, std::to_wstring(value));
}

void write_setting(const SettingsFile& file, const OptionalSetting& setting, int value) {
    file.WriteIniValue(setting.section, setting.key, std::to_wstring(value));
}

void write_setting(const SettingsFile& file, const DecimalSetting& setting, double value) {
    file.WriteIniValue(setting.section, setting.key, wide_text(NumberToText(value)));
}

void write_setting(const SettingsFile& file, const PathSetting& setting, const std::wstring& path) {
    file.WriteIniValue(setting.section, setting.key, path);
}

std::wstring read_setting(const SettingsFile& file, const Numbered<PathSetting>& entry) {
    const std::wstring key = numbered_key(entry.setting.key, entry.n);
    return read_setting(file, PathSetting{entry.setting.section, key.c_str()});
}

int read_setting(const SettingsFile& file, const Numbered<NumberSetting>& entry) {
    const std::wstring key = numbered_key(entry.setting.key, entry.n);
    NumberSetting setting = entry.setting;
    setting.key = key.c_str();
    return read_setting(file, setting);
}

void write_setting(const SettingsFile& file, const Numbered<PathSetting>& entry,
                   const std::wstring& path) {
    file.WriteIniValue(entry.setting.section, numbered_key(entry.setting.key, entry.n), path);
}

void write_setting(const SettingsFile& file, const Numbered<NumberSetting>& entry, int value) {
    file.WriteIniValue(entry.setting.section, numbered_key(entry.setting.key, entry.n),
                       std::to_wstring(value));
}

} // namespace kelvane
