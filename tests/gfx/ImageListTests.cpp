#include <gtest/gtest.h>

#include "Dib.h"
#include "velkan/core/Exceptions.h"
#include "velkan/gfx/BitmapBundle.h"
#include "velkan/gfx/Icon.h"
#include "velkan/gfx/ImageList.h"

using namespace Velkan;

namespace {

enum { kStrip16 = 1001, kStrip32 = 1002, kPal8 = 1003, kIcon = 1008 };

// The colour at the middle of image index drawn onto a white canvas.
uint32_t MiddleOf(CImageList& list, int index) {
    const CSize size = list.GetIconSize();
    Testing::Canvas canvas(size.cx, size.cy, 0xFFFFFFFF);
    list.Draw(index, canvas.dc, 0, 0, ILD_NORMAL);
    return canvas.At(size.cx / 2, size.cy / 2) & 0xFFFFFF;
}

}  // namespace

TEST(ImageList, BundleStripsAreCutIntoCellsForTheDpi) {
    CBitmapBundle bundle({kStrip16, kStrip32});
    struct Case { int dpi; int cell; };
    for (const Case& c : {Case{96, 16}, Case{120, 20}, Case{144, 24}, Case{192, 32}, Case{240, 40}}) {
        CImageList list;
        ASSERT_NE(nullptr, list.Create(bundle, c.dpi, 16, 0)) << c.dpi;
        EXPECT_EQ(4, list.GetImageCount()) << c.dpi;
        EXPECT_EQ(CSize(c.cell, c.cell), list.GetIconSize()) << c.dpi;
        // Each cell holds its own icon, not its neighbour's.
        EXPECT_EQ(0x14C814u, MiddleOf(list, 1)) << c.dpi;
        EXPECT_EQ(0xE6C80Au, MiddleOf(list, 3)) << c.dpi;
    }
}

TEST(ImageList, OneOwnerPerListAndTemporariesNeverDestroy) {
    CImageList first;
    HIMAGELIST handle = first.Create(16, 16, 0);
    ASSERT_NE(nullptr, handle);
    {
        CImageList second;
        second.Attach(handle);
        EXPECT_EQ(nullptr, first.GetHimageList());
        EXPECT_EQ(&second, CImageList::FromHimageList(handle));
    }
    EXPECT_FALSE(CImageList::IsImageList(handle));  // destroyed once, by its owner

    HIMAGELIST foreign = ::ImageList_Create(8, 8, ILC_COLOR32, 0, 1);
    CImageList* temp = CImageList::FromHimageList(foreign);
    EXPECT_NE(temp, CImageList::FromHimageList(foreign));
    CImageList::CleanUpTempObjects();
    EXPECT_TRUE(CImageList::IsImageList(foreign));
    ::ImageList_Destroy(foreign);

    CImageList detached;
    HIMAGELIST kept = detached.Create(8, 8, 0);
    EXPECT_EQ(kept, detached.Detach());
    detached.Destroy();
    EXPECT_TRUE(CImageList::IsImageList(kept));
    ::ImageList_Destroy(kept);
}

TEST(ImageList, LoadingConstructorsAndGreyDrawing) {
    CImageList strip(kStrip16, 16, 0, nullptr);
    EXPECT_EQ(4, strip.GetImageCount());
    EXPECT_THROW(CImageList(9999, 16, 0, nullptr), CResourceNotFoundException);
    try {
        CImageList bad(static_cast<HBITMAP>(nullptr), 16, 0);
        FAIL() << "no exception";
    } catch (const CRuntimeException& e) {
        EXPECT_STREQ("Failed to create HIMAGELIST from existing bitmap", e.what());
    }

    // Grey drawing keeps a grey pixel grey and turns red into grey.
    Testing::Canvas canvas(16, 16, 0xFFFFFFFF);
    EXPECT_TRUE(strip.DrawGrayscale(0, canvas.dc, 0, 0, ILD_NORMAL));
    const uint32_t p = canvas.At(8, 8);
    EXPECT_EQ((p >> 16) & 0xFF, (p >> 8) & 0xFF);
    EXPECT_EQ((p >> 8) & 0xFF, p & 0xFF);
}

TEST(Icon, SharedIconsAreDestroyedByTheirLastOwner) {
    CIcon icon(kIcon, 16, 16, nullptr);
    HICON handle = icon.GetHicon();
    CIcon copy(icon);
    EXPECT_EQ(2, icon.GetReferenceCount());
    EXPECT_EQ(handle, icon.Delete());
    EXPECT_EQ(nullptr, icon.GetHicon());
    ICONINFO info = {};
    ASSERT_TRUE(::GetIconInfo(handle, &info));  // the copy keeps it alive
    ::DeleteObject(info.hbmColor);
    ::DeleteObject(info.hbmMask);
    copy.Delete();
    EXPECT_FALSE(::GetIconInfo(handle, &info));

    HICON foreign = static_cast<HICON>(::LoadImageW(::GetModuleHandleW(nullptr), MAKEINTRESOURCEW(kIcon), IMAGE_ICON,
                                                    16, 16, 0));
    CIcon* temp = CIcon::FromHicon(foreign);
    EXPECT_TRUE(temp->IsTempObj());
    CIcon::CleanUpTempObjects();
    EXPECT_TRUE(::GetIconInfo(foreign, &info));
    ::DeleteObject(info.hbmColor);
    ::DeleteObject(info.hbmMask);
    ::DestroyIcon(foreign);
}
