// The document without a window.
#include "app/image_document.h"
#include "image/bitmap_file.h"
#include "image/file_error.h"
#include "support/pictures.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace kelvane::test {
namespace {

class Document : public testing::Test {
  protected:
    void load(const cDIBSection& picture) {
        save_bitmap(picture.view(), folder / "picture.bmp");
        ASSERT_TRUE(document.load(folder / "picture.bmp", ImageDocument::SizeLimit::Reduce));
    }
    std::wstring stored(const wchar_t* key) const {
        return settings.ReadIniValue(L"imageexport", key);
    }
    void expect_size(int width, int height) const {
        EXPECT_EQ(document.ImageWidth(), width);
        EXPECT_EQ(document.ImageHeight(), height);
    }

    TemporaryFolder folder;
    SettingsFile settings{folder / "kelvane.ini"};
    ImageDocument document{settings, nullptr};
};

TEST_F(Document, UndoTakesBackItselfAndAnotherSize) {
    const cDIBSection before = random_picture(20, 10, 7);
    load(before);
    EXPECT_FALSE(document.Dirty());
    document.Resample(20, 10); // to its own size: only marks it changed
    EXPECT_TRUE(document.Dirty());
    EXPECT_FALSE(document.undoEnable());
    document.Resample(7, 5);
    expect_size(7, 5);
    document.Undo();
    EXPECT_TRUE(same_pixels(document.picture(), before));
    document.ProcessImage(kSoften); // works on the restored size
    EXPECT_FALSE(same_pixels(document.picture(), before));
    document.Undo();
    document.Undo();
    EXPECT_FALSE(same_pixels(document.picture(), before));
    EXPECT_TRUE(document.Dirty());
}

TEST_F(Document, LargePicturesAreReducedWhenOpened) {
    load(black_picture(6400, 1000));
    expect_size(3200, 500);
    EXPECT_FALSE(document.Dirty());
    ASSERT_TRUE(document.load(folder / "picture.bmp", ImageDocument::SizeLimit::Keep));
    expect_size(6400, 1000);
}

TEST_F(Document, ReductionsStoreTheirValuesUnlessCancelled) {
    const cDIBSection before = random_picture(12, 8, 3);
    load(before);
    document.BlackAndWhite(0);
    document.lineArt(0, 1, 1, 1);
    document.edgeDetect(0);
    EXPECT_TRUE(same_pixels(document.picture(), before));
    EXPECT_FALSE(document.Dirty() || document.undoEnable());
    EXPECT_FALSE(exists(folder / "kelvane.ini"));

    document.lineArt(90, 1, 0, 1);
    EXPECT_EQ(stored(L"bwval2") + L' ' + stored(L"bwr") + stored(L"bwg") + stored(L"bbb"),
              L"90 101");
    document.Undo();
    document.edgeDetect(40);
    EXPECT_EQ(stored(L"bwval3"), L"40");
    document.Undo();
    document.BlackAndWhite(100);
    EXPECT_EQ(stored(L"bwval"), L"100");
    cDIBSection expected = before.Copy();
    cImageProcessDIB().BlackAndWhite(expected, expected, 100);
    EXPECT_TRUE(same_pixels(document.picture(), expected));
}

TEST_F(Document, NamesAndProposals) {
    const struct {
        const wchar_t *name, *title, *proposal;
    } cases[] = {
        {L"C:\\pics\\logo.png", L"logo.png", L"C:\\pics\\logo.bmp"},
        {L"C:\\a.b\\pic", L"pic", L"C:\\a.bmp"},
        {L"Image 4", L"Image 4", L"Image 4.bmp"},
        {L".x", L".x", L".x.bmp"},
        {L"a.x", L"a.x", L"a.x.bmp"},
        {L"ab.x", L"ab.x", L"ab.bmp"},
    };
    for (const auto& [name, title, proposal] : cases) {
        document.Filename(name);
        EXPECT_EQ(document.FileTitle(), title);
        EXPECT_EQ(document.proposed_name(), proposal);
    }
    EXPECT_EQ(document.save_question(),
              L"The image 'ab.x' has been changed.\r\n\r\nDo you want to save it?");
}

TEST_F(Document, WhatCannotBeReadOrWrittenLosesNothing) {
    const cDIBSection before = random_picture(5, 5, 2);
    load(before);
    write_text(folder / "rubbish.bmp", "BM, but nothing else");
    EXPECT_THROW(document.load(folder / "rubbish.bmp", ImageDocument::SizeLimit::Reduce),
                 FileError);
    EXPECT_THROW(document.ApplyPalette(folder / "missing.pal"), FileError);
    EXPECT_FALSE(document.Dirty() || document.undoEnable());
    document.NegativeImage();
    EXPECT_THROW(document.save((folder / "no folder" / "x.bmp").wstring()), FileError);
    EXPECT_TRUE(document.Dirty());
    document.Undo();
    EXPECT_TRUE(same_pixels(document.picture(), before));
}

TEST_F(Document, CombinesPicturesOfTwoSizes) {
    const cDIBSection first = flat_picture(4, 4, 10, 20, 30);
    const cDIBSection second = flat_picture(8, 2, 100, 50, 5);
    Combination combination;
    combination.sources = {&first, &second};
    combination.width = 4;
    combination.height = 4;
    combination.parts[0] = {2, 1, 1, 1};
    combination.parts[1] = {1, 0, 0, 0};
    document.Combine(combination);
    EXPECT_TRUE(same_pixels(document.picture(), flat_picture(4, 4, 122, 92, 67)));
    combination.type = Combination::kLightest; // of the measure without red the smaller one
    document.Combine(combination);
    EXPECT_TRUE(same_pixels(document.picture(), first));
    combination.type = Combination::kDarkest;
    document.Combine(combination);
    EXPECT_TRUE(same_pixels(document.picture(), flat_picture(4, 4, 100, 50, 5)));
}

} // namespace
} // namespace kelvane::test
