#include "dialogs/frmExport.h"
#include "dialogs/frmMsg3.h"

#include "dialogs/shown_dialog.h"
#include "engine/image_process.h"
#include "settings/scratch_folder.h"
#include "support/pictures.h"
#include "win/gdi.h"

#include "ids.h"

#include <gtest/gtest.h>

namespace kelvane {
namespace {

using test::choose_in_list;
using test::click;
using test::is_checked;
using test::show;
using test::text_of;
using test::type_text;

struct ExportDialogTest : testing::Test {
    const ScratchFolder scratch;
    const SettingsFile settings = scratch.settings();
    const cDIBSection picture = test::random_picture(60, 20, 1);
    frmExport dialog{settings, picture};

    std::wstring stored(const wchar_t* key) { return settings.ReadIniValue(L"imageexport", key); }
    void store(const wchar_t* key, const wchar_t* value) {
        settings.WriteIniValue(L"imageexport", key, value);
    }
};

TEST_F(ExportDialogTest, EmptySettingsGiveTheDesignedChoices) {
    show(
        dialog,
        [](HWND window) {
            EXPECT_EQ(text_of(window, IDC_EXPORT_LAYER), L"20 Dimension (B)");
            EXPECT_EQ(text_of(window, IDC_EXPORT_SIZE), L"1");
            EXPECT_EQ(text_of(window, IDC_EXPORT_UNIT), L"mil");
            EXPECT_EQ(text_of(window, IDC_EXPORT_VERSION), L"4.xx/5.xx");
            for (const int id :
                 {IDC_EXPORT_FULL, IDC_EXPORT_FULL_POLYGON, IDC_EXPORT_LINEWISE_POLYGON})
                EXPECT_TRUE(is_checked(window, id)) << id;
        },
        IDOK);
    EXPECT_FALSE(dialog.Cancelled);
    const ExportOptions options = dialog.options();
    EXPECT_TRUE(options.exp);
    EXPECT_EQ(options.optPoly, kShapePolygon);
    EXPECT_EQ(options.lay, 20);
    EXPECT_EQ(options.size, 1);
    EXPECT_EQ(stored(L"exp1"), L"-1");
    EXPECT_EQ(stored(L"poly1"), L"-1");
    EXPECT_EQ(stored(L"poly2"), L"0");
}

TEST_F(ExportDialogTest, ChoicesAreStoredAndComeBack) {
    show(
        dialog,
        [](HWND window) {
            choose_in_list(window, IDC_EXPORT_LAYER, 49);
            EXPECT_EQ(text_of(window, IDC_EXPORT_LAYER), L"51 tDocu (B)");
            type_text(window, IDC_EXPORT_SIZE, L"0.5 mm");
            choose_in_list(window, IDC_EXPORT_UNIT, 3);
            choose_in_list(window, IDC_EXPORT_VERSION, 2);
            click(window, IDC_EXPORT_FULL_WIRE);
            click(window, IDC_EXPORT_LINEWISE);
            EXPECT_TRUE(is_checked(window, IDC_EXPORT_FULL_WIRE)) << "the groups are independent";
            click(window, IDC_EXPORT_LINEWISE_RECTANGLE);
        },
        IDOK);
    const ExportOptions options = dialog.options();
    EXPECT_FALSE(options.exp);
    EXPECT_EQ(options.optPoly, kShapeRectangle);
    EXPECT_EQ(options.lay, 50) << "the position, not what the label says";
    EXPECT_EQ(options.size, 0.5);
    EXPECT_EQ(options.unit, 3);
    EXPECT_EQ(options.ver, 2);
    const std::pair<const wchar_t*, const wchar_t*> kStored[] = {
        {L"layer", L"50"}, {L"size", L".5"}, {L"unit", L"3"}, {L"version", L"2"},
        {L"exp1", L"0"},   {L"poly1", L"0"}, {L"poly2", L"2"}};
    for (const auto& [key, value] : kStored)
        EXPECT_EQ(stored(key), value);

    frmExport again(settings, picture);
    show(
        again, [](HWND window) { click(window, IDC_EXPORT_FULL); }, IDOK);
    EXPECT_TRUE(again.options().exp);
    EXPECT_EQ(again.options().optPoly, kShapeWire);
    EXPECT_EQ(again.options().size, 0.5);
    EXPECT_EQ(stored(L"poly2"), L"2");
}

TEST_F(ExportDialogTest, OddSettingsReadAsMissingAndOnlyOkWrites) {
    for (const auto& [key, value] : {std::pair(L"layer", L"256"), std::pair(L"unit", L"-1"),
                                     std::pair(L"version", L"x"), std::pair(L"poly2", L"7")})
        store(key, value);
    const std::string before = scratch.bytes();
    const auto fill = [](HWND window) { type_text(window, IDC_EXPORT_SIZE, L"0,5"); };
    show(dialog, fill, IDCANCEL);
    EXPECT_TRUE(dialog.Cancelled);
    EXPECT_EQ(scratch.bytes(), before);
    show(dialog, fill, IDOK);
    EXPECT_EQ(dialog.options().lay, 20);
    EXPECT_EQ(dialog.options().unit, 0);
    EXPECT_EQ(dialog.options().ver, 0);
    EXPECT_EQ(dialog.options().size, 0);
    EXPECT_EQ(stored(L"poly2"), L"0");
}

TEST(LayerListTest, HasAllLayersAndTheShift) {
    const std::vector<std::wstring> labels = layer_labels();
    ASSERT_EQ(labels.size(), 255u);
    const std::pair<int, const wchar_t*> kLabels[] = {
        {1, L"1  Top (B)"},      {49, L"49 Reference (B)"}, {50, L"51 tDocu (B)"},
        {51, L"52 bDocu (B)"},   {52, L" Userdefined"},     {53, L"53 Userdefined"},
        {90, L"90 Userdefined"}, {91, L"91 Nets (S)"},      {96, L"96 Values (S)"},
        {97, L"97 Userdefined"}, {255, L"255 Userdefined"}};
    for (const auto& [position, label] : kLabels)
        EXPECT_EQ(labels[static_cast<std::size_t>(position - 1)], label);
}

TEST_F(ExportDialogTest, PreviewIsTheReducedPictureScaledAndPainted) {
    cDIBSection expected = picture.Copy();
    cImageProcessDIB().BlackAndWhite2(expected, expected, 128);
    expected = expected.Resample(73, 220);
    std::vector<COLORREF> painted, wanted;
    for (int i = 0; i < 73; ++i) {
        const auto [blue, green, red] = test::pixel_at(expected, 3 * i, 72 - i);
        wanted.push_back(RGB(red, green, blue));
    }
    show(
        dialog,
        [&](HWND window) {
            const HWND box = GetDlgItem(window, IDC_EXPORT_PREVIEW);
            UpdateWindow(box);
            const win::WindowContext context(box);
            for (int i = 0; i < 73; ++i)
                painted.push_back(GetPixel(context.get(), 3 * i, i));
        },
        IDCANCEL);
    EXPECT_TRUE(test::same_pixels(dialog.preview(), expected));
    EXPECT_EQ(painted, wanted);
}

TEST(RangeWarningTest, OnlyTheTickAndTheButtonDelete) {
    const auto tick = [](HWND window) { click(window, IDC_RANGE_DELETE); };
    frmMsg3 warning;
    show(warning, tick, IDOK);
    EXPECT_TRUE(warning.DeleteScript);
    show(
        warning, [](HWND) {}, IDOK);
    EXPECT_FALSE(warning.DeleteScript);
    show(warning, tick, IDCANCEL);
    EXPECT_FALSE(warning.DeleteScript);
}

} // namespace
} // namespace kelvane
