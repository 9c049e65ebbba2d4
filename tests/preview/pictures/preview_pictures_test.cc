// The pictures of the preview as they are kept beside this file. tools/renew_pictures renews them.
#include <gtest/gtest.h>

#include "preview_pictures.h"

namespace preview_test {
namespace {

TEST(PreviewPictures, AreAsTheyWere)
{
    for (const Reference& reference : References()) {
        SCOPED_TRACE(reference.name);
        QImage kept(QString(QD_PICTURES) + "/" + reference.name + ".png");
        ASSERT_FALSE(kept.isNull()) << "there is no such picture";
        const QImage now = Paint(reference.record, Fonts::BuiltIn);
        ASSERT_EQ(now.size(), kept.size());
        int different = 0;
        for (int y = 0; y < now.height(); ++y)
            for (int x = 0; x < now.width(); ++x) different += now.pixel(x, y) != kept.pixel(x, y);
        EXPECT_EQ(different, 0) << "pixels; see tools/renew_pictures";
    }
}

}  // namespace
}  // namespace preview_test
