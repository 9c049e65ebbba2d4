// Every page and dialog of the document sheet in its main states, and how a user gets there: the rows of
// `qd480 snapshots`, and of whoever wants to see all of them.
#pragma once

namespace host {

struct Picture {
    const char* name;  // of the picture's file, without its ending
    const char* way;   // steps of a script
};

inline constexpr Picture Pictures[] = {
    {"setup",                   "page \"Setup\"\n"                                                                         },
    {"setup-2-up",              "page \"Setup\"\nchoose IDC_NUP \"2-up\"\nclick IDC_BORDER_LINE\n"                         },
    {"setup-booklet",
     "page \"Setup\"\nchoose IDC_PAPER_SOURCE \"Tray1\"\nchoose IDC_DUPLEX \"Booklet Left Binding\"\n"                     },
    {"setup-transparency",      "page \"Setup\"\nchoose IDC_MEDIA_TYPE \"Transparency\"\n"                                 },
    {"setup-watermark",         "page \"Setup\"\nchoose IDC_WATERMARK \"CONFIDENTIAL\"\n"                                  },
    {"setup-figure",            "page \"Setup\"\nclick IDC_SETUP_PRINTER_FIGURE\n"                                         },
    {"watermark-edit",          "page \"Setup\"\nclick IDC_EDIT_WATERMARK\n"                                               },
    {"watermark-row",           "page \"Setup\"\nchoose IDC_WATERMARK \"CONFIDENTIAL\"\nclick IDC_EDIT_WATERMARK\n"        },
    {"watermark-new",
     "page \"Setup\"\nclick IDC_EDIT_WATERMARK\nclick IDC_WM_NEW\nchoose IDC_WM_ANGLE_MODE \"User Setting\"\nclick "
     "IDC_WM_USER_POSITION\n"                                                                                              },
    {"nup-style",               "page \"Setup\"\nchoose IDC_NUP \"4-up\"\nclick IDC_NUP_STYLE\n"                           },
    {"nup-style-vertical",      "page \"Setup\"\nchoose IDC_NUP \"4-up\"\nclick IDC_NUP_STYLE\nclick IDC_VERT_DESCENDING\n"},
    {"overlay-list",            "page \"Setup\"\nclick IDC_EDIT_OVERLAY\n"                                                 },
    {"overlay-edit",            "page \"Setup\"\nclick IDC_EDIT_OVERLAY\nclick IDC_OVL_NEW\nclick 1\n"                     },
    {"paper",                   "page \"Paper\"\n"                                                                         },
    {"paper-fitted",            "page \"Paper\"\nclick IDC_FIT_TO_PAPER\nclick IDC_LANDSCAPE\nclick IDC_SHIFT_ON\n"        },
    {"custom-paper",            "page \"Paper\"\nclick IDC_EDIT_CUSTOM\nclick IDC_CP_NEW\nclick IDC_CP_UNIT_MM\n"          },
    {"custom-paper-inches",     "page \"Paper\"\nclick IDC_EDIT_CUSTOM\nclick IDC_CP_NEW\nclick IDC_CP_UNIT_INCH\n"        },
    {"custom-paper-empty",      "page \"Paper\"\nclick IDC_EDIT_CUSTOM\n"                                                  },
    {"custom-paper-name-fault", "page \"Paper\"\nclick IDC_EDIT_CUSTOM\nclick IDC_CP_NEW\ntype IDC_CP_NAME \"\"\n"         },
    {"quality",                 "page \"Quality\"\n"                                                                       },
    {"device-options",          "page \"Device Options Setting\"\n"                                                        },
    {"about",                   "page \"Device Options Setting\"\nclick IDC_ABOUT\n"                                       },
};

}  // namespace host
