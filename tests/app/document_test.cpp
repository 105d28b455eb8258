// The document without a window.
#include "app/image_document.h"
#include "image/bitmap_file.h"
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

} // namespace
} // namespace kelvane::test
