// What assistive programs are told of each control.
#include <QAccessible>
#include <QtWidgets>

#include "desktop/control_sync.h"
#include "pclui/resources/control_numbers.h"
#include "tests/desktop/access_rig.h"

namespace accessibility {
namespace {

using desktop::IsGroupBox;
using platform::user::Window;

struct FieldName {
    int control;
    const char* name;
};
constexpr FieldName FieldNames[] = {
    {IDC_NUP,                  "N-up"                  },
    {IDC_DUPLEX,               "Duplex/Booklet"        },
    {IDC_WATERMARK,            "Watermark"             },
    {IDC_PAPER_SOURCE,         "Paper Source"          },
    {IDC_MEDIA_TYPE,           "Media Type"            },
    {IDC_OVERLAY,              "Form Overlay"          },
    {IDC_DOCUMENT_SIZE,        "Original Document Size"},
    {IDC_OUTPUT_SIZE,          "Output Paper Size"     },
    {IDC_SCALING,              "Scaling"               },
    {IDC_SHIFT_X,              "X"                     },
    {IDC_SHIFT_Y,              "Y"                     },
    {IDC_COPIES,               "Copies"                },
    {IDC_RESOLUTION,           "Resolution"            },
    {IDC_SMOOTHTONE,           "Smoothtone"            },
    {IDC_TONER_DENSITY,        "Toner Density"         },
    {IDC_TOTAL_MEMORY,         "Total Memory"          },
    {IDC_WM_LIST,              "Watermark"             },
    {IDC_WM_NAME,              "Name"                  },
    {IDC_WM_TEXT,              "String"                },
    {IDC_WM_FACE,              "Typeface"              },
    {IDC_WM_SIZE,              "Size"                  },
    {IDC_WM_SHADING,           "Shading"               },
    {IDC_WM_ANGLE_MODE,        "Angle"                 },
    {IDC_WM_ANGLE,             "User Setting"          },
    {IDC_WM_HORIZONTAL,        "Horizontal"            },
    {IDC_WM_VERTICAL,          "Vertical"              },
    {IDC_OVL_LIST,             "Form Overlay"          },
    {IDC_OVL_NAME,             "Form Overlay Name"     },
    {IDC_OVL_PATH,             "Form Overlay File Path"},
    {IDC_CP_LIST,              "Paper Name"            },
    {IDC_CP_NAME,              "Name"                  },
    {IDC_CP_WIDTH_MM,          "Width"                 },
    {IDC_CP_WIDTH_INCH,        "Width"                 },
    {IDC_CP_WIDTH_SIXTEENTHS,  "Width"                 },
    {IDC_CP_HEIGHT_MM,         "Height"                },
    {IDC_CP_HEIGHT_INCH,       "Height"                },
    {IDC_CP_HEIGHT_SIXTEENTHS, "Height"                },
    {99,                       "Device Settings"       },
};

struct KindRoles {
    Kind kind;
    std::vector<QAccessible::Role> roles;
};
const KindRoles Roles[] = {
    {Kind::Button,
     {QAccessible::PushButton, QAccessible::CheckBox, QAccessible::RadioButton, QAccessible::Grouping,
      QAccessible::Graphic}                                                            },
    {Kind::Static,   {QAccessible::StaticText}                                         },
    {Kind::Edit,     {QAccessible::EditableText}                                       },
    {Kind::ComboBox, {QAccessible::ComboBox}                                           },
    {Kind::ListBox,  {QAccessible::List}                                               },
    {Kind::ListView, {QAccessible::Tree, QAccessible::Table}                           },
    {Kind::TreeView, {QAccessible::Tree}                                               },
    {Kind::UpDown,   {QAccessible::SpinBox, QAccessible::Grouping, QAccessible::Client}},
};

std::string AccessibleName(QWidget* widget)
{
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(widget);
    if (!told) return "";
    // A drop-down list's own name is what it shows; what it is for, its label tells.
    if (told->role() == QAccessible::ComboBox) {
        const auto labels = told->relations(QAccessible::Label);
        told = labels.isEmpty() ? nullptr : labels.front().first;
    }
    return told ? told->text(QAccessible::Name).remove(':').toStdString() : "";
}

TEST_F(Access, EveryControlTellsItsNameAndRole)
{
    VisitAll([](const Picture&, HWND top) {
        for (const Place& place : Places(top)) {
            const Window& control = place.Control();
            if (!control.visible || (control.kind == Kind::Static && control.text.empty())) continue;
            SCOPED_TRACE(place.Name());
            if (!place.widget) {
                EXPECT_EQ(control.kind, Kind::Static) << "nothing tells of it";
                continue;
            }
            const auto roles = std::ranges::find(Roles, control.kind, &KindRoles::kind)->roles;
            const auto role = QAccessible::queryAccessibleInterface(place.widget)->role();
            EXPECT_TRUE(std::ranges::count(roles, role)) << "its role is " << role;
            const std::string name = AccessibleName(place.widget);
            EXPECT_FALSE(name.empty() && !IsGroupBox(control)) << "has no name";
            for (QToolButton* arrow : place.widget->findChildren<QToolButton*>())
                EXPECT_NE(AccessibleName(arrow), "") << "an arrow has no name";
            if (!IsField(control)) continue;
            const auto* row = std::ranges::find(FieldNames, control.id, &FieldName::control);
            ASSERT_NE(row, std::end(FieldNames)) << "is called \"" << name << '"';
            EXPECT_EQ(name, row->name);
        }
        for (QAbstractButton* button : WindowOf(top)->findChildren<QAbstractButton*>())
            EXPECT_TRUE(!button->isVisible() || AccessibleName(button) != "") << button->metaObject()->className();
    });
}

}  // namespace
}  // namespace accessibility
