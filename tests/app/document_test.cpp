// The document without a window.
#include "app/image_document.h"
#include "base/file_error.h"
#include "image/bitmap_file.h"
#include "support/pictures.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace kelvane::test {
namespace {

// Simulates an operation that runs out of memory in the middle.
struct FailingObserver : ProgressObserver {
    bool fails = false;
    void Progress(long) override {
        if (fails) throw std::bad_alloc();
    }
};

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
    FailingObserver observer;
    ImageDocument document{settings, &observer};
};

TEST_F(Document, OperationThatFailsHalfWayIsAChangeThatCanBeUndone) {
    const cDIBSection before = random_picture(9, 5, 3);
    load(before);
    observer.fails = true;
    EXPECT_THROW(document.ProcessImage(kEmboss), std::bad_alloc);
    EXPECT_TRUE(document.Dirty());
    document.Undo();
    EXPECT_TRUE(same_pixels(document.picture(), before));
}

// Left half red, right half transparent; with a white palette, the left half as well.
TEST_F(Document, WhiteOnNothingIsShownAsInk) {
    std::string gif = file_text(KELVANE_TEST_DATA "/pictures/transparent.gif");
    for (const int red : {255, 0}) {
        write_text(folder / "logo.gif", gif);
        ASSERT_TRUE(document.load(folder / "logo.gif", ImageDocument::SizeLimit::Keep));
        EXPECT_EQ(pixel_at(document.picture(), 0, 15), (std::array{0, 0, red}));
        EXPECT_EQ(pixel_at(document.picture(), 31, 15), (std::array{255, 255, 255}));
        EXPECT_EQ(document.opening().ink_instead_of_nothing, red == 0);
        gif.replace(13, 12, std::string(12, '\xFF'));
    }
}

TEST_F(Document, LoadingStartsAnewOrChangesNothing) {
    load(black_picture(4, 3));
    document.Filename(L"name");
    document.NegativeImage();
    write_text(folder / "broken.bmp", "BM");
    EXPECT_THROW(document.load(folder / "broken.bmp", ImageDocument::SizeLimit::Keep), FileError);
    EXPECT_TRUE(document.Dirty() && document.undoEnable());
    EXPECT_EQ(document.Filename(), L"name");
    EXPECT_TRUE(same_pixels(document.picture(), flat_picture(4, 3, 255, 255, 255)));
    load(black_picture(2, 2));
    EXPECT_FALSE(document.Dirty() || document.undoEnable());
    document.Undo();
    expect_size(2, 2);
}

TEST_F(Document, EdgesLeaveTheFirstColumnAndTheLowestRowAsTheyWere) {
    load(drawn({"#..##", //
                ".#..#", //
                "#.#.#"}));
    for (const bool fresh : {true, false}) {
        if (!fresh) document.ProcessImage(kEmboss); // leaves other pixels in the buffer
        if (!fresh) document.Undo();
        document.edgeDetect(100);
        EXPECT_TRUE(same_pixels(document.picture(), drawn({"##.#.", //
                                                           ".##.#", //
                                                           "#.#.#"})));
        document.Undo();
    }
    load(flat_picture(8, 6, 255, 255, 255));
    document.edgeDetect(40);
    document.Vectorize(folder / "empty.scr", ExportOptions());
    EXPECT_EQ(file_text(folder / "empty.scr").find('('), std::string::npos) << "an outline";
}

TEST_F(Document, UndoTakesBackItselfAndAnotherSize) {
    const cDIBSection before = random_picture(20, 10, 7);
    load(before);
    EXPECT_FALSE(document.Dirty());
    document.Resample(20, 10); // to its own size: only marks it changed
    EXPECT_TRUE(document.Dirty());
    EXPECT_FALSE(document.undoEnable());
    document.Resample(20, 5);
    expect_size(20, 5);
    document.Undo();
    document.Resample(7, 5);
    expect_size(7, 5);
    document.Undo();
    EXPECT_TRUE(same_pixels(document.picture(), before));
    document.ProcessImage(kSoften); // works on the restored size
    document.Undo();
    document.Undo();
    EXPECT_NE(pixel_at(document.picture(), 3, 2), pixel_at(before, 3, 2));
    EXPECT_TRUE(document.Dirty());
}

TEST_F(Document, ReductionsWithLimit0ChangeAndStoreNothing) {
    load(flat_picture(2, 2, 1, 2, 3));
    document.BlackAndWhite(0);
    document.lineArt(0, 1, 1, 1);
    document.edgeDetect(0);
    EXPECT_TRUE(same_pixels(document.picture(), flat_picture(2, 2, 1, 2, 3)));
    EXPECT_FALSE(document.Dirty() || document.undoEnable() || exists(folder / "kelvane.ini"));
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
