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
        click(window, IDC_EXPORT_SMOOTH);
        click(window, IDC_EXPORT_MIRROR);
    });
    EXPECT_EQ(chosen(dialog), std::tuple(false, kShapeRectangle, 50, 0.5, 3, 2));
    expect_stored({{L"layer", L"50"}, // the position, not what the label says
                   {L"size", L".5"},
                   {L"unit", L"3"},
                   {L"version", L"2"},
                   {L"exp1", L"0"},
                   {L"poly1", L"0"},
                   {L"poly2", L"2"},
                   {L"smooth", L"-1"},
                   {L"mirror", L"-1"}});
    EXPECT_EQ(dialog.options().smooth, 0) << "only outlines can be smooth";

    frmExport again(settings, picture);
    show(again, IDOK, [](HWND window) { click(window, IDC_EXPORT_FULL); });
    EXPECT_EQ(chosen(again), std::tuple(true, kShapeWire, 50, 0.5, 3, 2));
    EXPECT_EQ(stored(L"poly2"), L"2");
    EXPECT_EQ(again.options().smooth, .5);
    EXPECT_TRUE(again.mirrored());
}

TEST_F(ExportDialogTest, PreviewIsTheReducedPictureScaledAndPainted) {
    cDIBSection expected = picture.Copy();
    cImageProcessDIB().BlackAndWhite2(expected, expected, 128);
    expected = expected.Resample(73, 220);
    show(dialog, IDCANCEL, [&](HWND window) {
        choose_in_list(window, IDC_EXPORT_UNIT, 1); // 1 inch a pixel: nothing is too thin
        for (int i = 0; i < 73; ++i) {
            const auto [blue, green, red] = pixel_at(expected, 3 * i, 72 - i);
            ASSERT_EQ(shown_at(window, IDC_EXPORT_PREVIEW, 3 * i, i), RGB(red, green, blue)) << i;
        }
    });
    EXPECT_TRUE(same_pixels(dialog.preview(), expected));
}

TEST_F(ExportDialogTest, PreviewShowsSmoothOutlines) {
    cDIBSection slope = black_picture(220, 220);
    for (int y = 0; y < 220; ++y)
        std::fill_n(slope.view().pixel(y, y), 3 * (220 - y), std::uint8_t{255});
    frmExport form(settings, slope);
    show(form, IDCANCEL, [&](HWND window) {
        EXPECT_EQ(shown_at(window, IDC_EXPORT_PREVIEW, 110, 109), RGB(255, 255, 255));
        click(window, IDC_EXPORT_SMOOTH);
        const int grey = GetRValue(shown_at(window, IDC_EXPORT_PREVIEW, 110, 109));
        EXPECT_THAT(grey, testing::AllOf(testing::Gt(130), testing::Lt(250))); // mostly white
    });
}

// A block of 180 x 60 pixels and, 20 above it, a line 1 thick.
cDIBSection block_and_line(int width, int height) {
    cDIBSection picture = flat_picture(width, height, 255, 255, 255);
    for (int x = 10; x < 190; ++x)
        for (int y = 10; y < 91; ++y)
            if (y < 70 || y == 90) std::fill_n(picture.view().pixel(x, y), 3, std::uint8_t{0});
    return picture;
}

TEST_F(ExportDialogTest, WidthSetsThePixelSizeAndTheResultFollows) {
    const cDIBSection drawing = block_and_line(200, 100);
    frmExport form(settings, drawing);
    show(form, IDOK, [&](HWND window) {
        const auto result = [&] { return text_of(window, IDC_EXPORT_RESULT); };
        EXPECT_EQ(text_of(window, IDC_EXPORT_WIDTH), L"0.2");
        EXPECT_EQ(text_of(window, IDC_EXPORT_WIDTH_UNIT), L"inch");
        choose_in_list(window, IDC_EXPORT_UNIT, 3);
        EXPECT_EQ(text_of(window, IDC_EXPORT_WIDTH), L"200");
        EXPECT_EQ(result(), L"Picture 200.00 x 100.00 mm; ink 180.00 x 81.00 mm; 2 polygons, "
                            L"252 bytes\r\n! Layer 20 Dimension is the outline of the board.");
        type_text(window, IDC_EXPORT_WIDTH, L"20");
        EXPECT_EQ(text_of(window, IDC_EXPORT_SIZE), L"0.1");
        EXPECT_EQ(text_of(window, IDC_EXPORT_WIDTH_UNIT), L"mm");
        EXPECT_EQ(result(), L"Picture 20.00 x 10.00 mm; ink 18.00 x 8.10 mm; 2 polygons, "
                            L"236 bytes\r\n! Thinnest line 0.10 mm: board makers print from "
                            L"0.15 mm on.");
        EXPECT_EQ(shown_at(window, IDC_EXPORT_PREVIEW, 110, 10), RGB(255, 0, 0));
        EXPECT_EQ(shown_at(window, IDC_EXPORT_PREVIEW, 110, 60), RGB(0, 0, 0));
        type_text(window, IDC_EXPORT_WIDTH, L"");
        EXPECT_EQ(text_of(window, IDC_EXPORT_SIZE), L"0.1");
        click(window, IDC_EXPORT_SMOOTH);
        EXPECT_THAT(result(), testing::HasSubstr(L"2 polygons of 10 points, 236 bytes"));
        type_text(window, IDC_EXPORT_SIZE, L"0,5");
        EXPECT_THAT(result(), testing::EndsWith(L"! A pixel has the size 0: everything lies in "
                                                L"one point."));
        type_text(window, IDC_EXPORT_WIDTH, L"1");
        EXPECT_EQ(shown_at(window, IDC_EXPORT_PREVIEW, 110, 20), RGB(255, 0, 0)) << "a gap";
        type_text(window, IDC_EXPORT_WIDTH, L"10.1");
    });
    EXPECT_EQ(form.options().size * 200, 10.1) << "all digits count";
}

TEST_F(ExportDialogTest, LargePicturesAreExaminedWhenTheUserPauses) {
    const cDIBSection large = block_and_line(2000, 1000);
    frmExport form(settings, large);
    show(form, IDCANCEL, [&](HWND window) {
        const auto result = [&] { return text_of(window, IDC_EXPORT_RESULT); };
        EXPECT_THAT(result(), testing::HasSubstr(L"ink 0.180 x 0.081 inch; counting ..."));
        MSG message;
        while (result().find(L"counting") != std::wstring::npos &&
               GetMessageW(&message, nullptr, 0, 0) > 0)
            DispatchMessageW(&message);
        EXPECT_THAT(result(), testing::HasSubstr(L"inch; 2 polygons, "));
        const auto warning = L"! Thinnest line 0.001 inch: board makers print from 0.0059 inch on.";
        EXPECT_THAT(result(), testing::EndsWith(warning));
        choose_in_list(window, IDC_EXPORT_LAYER, 1);
        EXPECT_THAT(result(), testing::HasSubstr(L"counting"));
        EXPECT_THAT(result(), testing::EndsWith(warning)) << "the layer does not change it";
    });
}

TEST_F(ExportDialogTest, LayersAreFoundByTypingAndTheHintWarns) {
    show(dialog, IDOK, [](HWND window) {
        const auto type = [&](int control, const wchar_t* keys) {
            for (; *keys != 0; ++keys)
                SendDlgItemMessageW(window, control, WM_CHAR, *keys, 0);
        };
        const auto hint = [&] { return text_of(window, IDC_EXPORT_HINT).substr(0, 33); };
        EXPECT_EQ(hint(), L"Layer 20 is the outline of the bo");
        type(IDC_EXPORT_LAYER, L"21");
        EXPECT_EQ(text_of(window, IDC_EXPORT_LAYER), L"21 tPlace (B)");
        EXPECT_EQ(hint(), L"If the Preview is to dark or whit");
        type(IDC_EXPORT_LAYER, L"bP");
        EXPECT_EQ(text_of(window, IDC_EXPORT_LAYER), L"22 bPlace (B)");
        EXPECT_EQ(hint(), L"Layer 22 bPlace is seen from belo");
        click(window, IDC_EXPORT_MIRROR);
        EXPECT_EQ(hint(), L"If the Preview is to dark or whit");

        const auto opened_at = [&](int layer) {
            choose_in_list(window, IDC_EXPORT_LAYER, layer - 1);
            SendDlgItemMessageW(window, IDC_EXPORT_LAYER, CB_SHOWDROPDOWN, TRUE, 0);
            handle_messages();
            const LRESULT top = SendDlgItemMessageW(window, IDC_EXPORT_LAYER, CB_GETTOPINDEX, 0, 0);
            SendDlgItemMessageW(window, IDC_EXPORT_LAYER, CB_SHOWDROPDOWN, FALSE, 0);
            return top + 1;
        };
        EXPECT_EQ(opened_at(28), 20);
        EXPECT_EQ(opened_at(7), 7);
        EXPECT_EQ(opened_at(52), 20);
        EXPECT_THAT(opened_at(100), testing::AllOf(testing::Gt(60), testing::Lt(75)));

        type_text(window, IDC_EXPORT_SIZE, L"");
        type(IDC_EXPORT_SIZE, L"1,2");
        EXPECT_EQ(text_of(window, IDC_EXPORT_SIZE), L"1.2");
        type_text(window, IDC_EXPORT_WIDTH, L"0,75");
        SendDlgItemMessageW(window, IDC_EXPORT_WIDTH, EM_SETSEL, 0, -1);
        SendDlgItemMessageW(window, IDC_EXPORT_WIDTH, WM_COPY, 0, 0);
        SendDlgItemMessageW(window, IDC_EXPORT_WIDTH, WM_PASTE, 0, 0);
        EXPECT_EQ(text_of(window, IDC_EXPORT_WIDTH), L"0.75");
        EXPECT_EQ(text_of(window, IDC_EXPORT_SIZE), L"12.5");
    });
}

} // namespace
} // namespace kelvane::test
