// The pictures of the preview as they are kept beside this file. tools/renew_pictures renews them.
#include <gtest/gtest.h>

#include "preview_pictures.h"

namespace preview_test {
namespace {

TEST(PreviewPictures, AreAsTheyWere)
{
    for (const auto& [name, record] : References()) {
        const QImage kept(QString(QD_PICTURES) + "/" + name + ".png");
        EXPECT_TRUE(kept.convertToFormat(QImage::Format_RGB32) == Paint(record, Fonts::BuiltIn))
            << name << " has other pixels, see tools/renew_pictures";
    }
}

}  // namespace
}  // namespace preview_test
