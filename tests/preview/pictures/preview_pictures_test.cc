// The pictures of the preview as they are kept beside this file. tools/renew_pictures renews them.
#include <gtest/gtest.h>

#include "preview_pictures.h"

namespace preview_test {
namespace {

TEST(PreviewPictures, AreAsTheyWere)
{
    for (const Reference& reference : References()) {
        const QImage kept(QString(QD_PICTURES) + "/" + reference.name + ".png");
        EXPECT_TRUE(kept.convertToFormat(QImage::Format_RGB32) == Paint(reference.record, Fonts::BuiltIn))
            << reference.name << " has other pixels, see tools/renew_pictures";
    }
}

}  // namespace
}  // namespace preview_test
