#include "dialogs/dialog_test.h"
#include "dialogs/frmExport.h"

#include "engine/image_process.h"

namespace kelvane::test {
namespace {

struct ExportDialogTest : DialogTest {
    const cDIBSection picture = random_picture(60, 20, 1);
    frmExport dialog{settings, picture};

    void expect_stored(std::initializer_list<std::pair<const wchar_t*, const wchar_t*>> values) {
        for (const auto& [key, value] : values)
            EXPECT_EQ(stored(key), value) << testing::PrintToString(key);
    }
    // Whether full autotrace, shape, layer, pixel size, unit and version.
    std::tuple<bool, int, int, double, int, int> chosen(const frmExport& form) const {
        const ExportOptions options = form.options();
        return {options.exp, options.optPoly, options.lay, options.size, options.unit, options.ver};
    }
};

TEST_F(ExportDialogTest, MissingAndOddSettingsGiveTheDesignedChoices) {
    for (const char* odd : {"", "layer=256\r\nunit=-1\r\nversion=x\r\npoly2=7\r\n"}) {
        const std::string before = std::string("[imageexport]\r\n") + odd;
        scratch.put(before);
        show(dialog, IDCANCEL);
        EXPECT_EQ(scratch.bytes(), before);
        show(dialog, IDOK, [](HWND window) {
            EXPECT_EQ(text_of(window, IDC_EXPORT_LAYER), L"20 Dimension (B)");
            EXPECT_EQ(text_of(window, IDC_EXPORT_SIZE), L"1");
            EXPECT_EQ(text_of(window, IDC_EXPORT_UNIT), L"mil");
            EXPECT_EQ(text_of(window, IDC_EXPORT_VERSION), L"4.xx/5.xx");
            EXPECT_TRUE(is_checked(window, IDC_EXPORT_FULL_POLYGON));
        });
        EXPECT_EQ(chosen(dialog), std::tuple(true, kShapePolygon, 20, 1.0, 0, 0));
        expect_stored({{L"exp1", L"-1"}, {L"poly1", L"-1"}, {L"poly2", L"0"}});
    }
}

TEST_F(ExportDialogTest, ChoicesAreStoredAndComeBack) {
    show(dialog, IDOK, [](HWND window) {
        choose_in_list(window, IDC_EXPORT_LAYER, 49);
        EXPECT_EQ(text_of(window, IDC_EXPORT_LAYER), L"51 tDocu (B)");
        type_text(window, IDC_EXPORT_SIZE, L"0.5 mm");
        choose_in_list(window, IDC_EXPORT_UNIT, 3);
        choose_in_list(window, IDC_EXPORT_VERSION, 2);
        click(window, IDC_EXPORT_FULL_WIRE);
        click(window, IDC_EXPORT_LINEWISE);
        EXPECT_TRUE(is_checked(window, IDC_EXPORT_FULL_WIRE)) << "the groups are independent";
        click(window, IDC_EXPORT_LINEWISE_RECTANGLE);
    });
    EXPECT_EQ(chosen(dialog), std::tuple(false, kShapeRectangle, 50, 0.5, 3, 2));
    expect_stored({{L"layer", L"50"}, // the position, not what the label says
                   {L"size", L".5"},
                   {L"unit", L"3"},
                   {L"version", L"2"},
                   {L"exp1", L"0"},
                   {L"poly1", L"0"},
                   {L"poly2", L"2"}});

    frmExport again(settings, picture);
    show(again, IDOK, [](HWND window) { click(window, IDC_EXPORT_FULL); });
    EXPECT_EQ(chosen(again), std::tuple(true, kShapeWire, 50, 0.5, 3, 2));
    EXPECT_EQ(stored(L"poly2"), L"2");
}

TEST_F(ExportDialogTest, PreviewIsTheReducedPictureScaledAndPainted) {
    cDIBSection expected = picture.Copy();
    cImageProcessDIB().BlackAndWhite2(expected, expected, 128);
    expected = expected.Resample(73, 220);
    show(dialog, IDCANCEL, [&](HWND window) {
        for (int i = 0; i < 73; ++i) {
            const auto [blue, green, red] = pixel_at(expected, 3 * i, 72 - i);
            ASSERT_EQ(shown_at(window, IDC_EXPORT_PREVIEW, 3 * i, i), RGB(red, green, blue)) << i;
        }
    });
    EXPECT_TRUE(same_pixels(dialog.preview(), expected));
}

} // namespace
} // namespace kelvane::test
