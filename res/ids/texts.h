// Numbers of every text in the string table. A text's number here names the German one; the English
// one stands kEnglishOffset higher. Texts are in blocks, one block for each window; a block's free
// numbers are for its own additions.
#ifndef KELVANE_RES_IDS_TEXTS_H
#define KELVANE_RES_IDS_TEXTS_H

// Main window: title, followed by the version.
#define IDS_TITLE                        3900

// Menu captions, in menu order; later additions follow from 3946 on.
#define IDS_MENU_FILE                    3901
#define IDS_MENU_OPEN                    3902
#define IDS_MENU_SAVE                    3903
#define IDS_MENU_EXPORT                  3904
#define IDS_MENU_EXIT                    3905
#define IDS_MENU_EDIT                    3906
#define IDS_MENU_UNDO                    3907
#define IDS_MENU_COPY                    3908
#define IDS_MENU_PASTE                   3909
#define IDS_MENU_IMAGE                   3910
#define IDS_MENU_SOFTENING_FILTERS       3911
#define IDS_MENU_SOFTEN                  3912
#define IDS_MENU_SOFTEN_MORE             3913
#define IDS_MENU_BLUR                    3914
#define IDS_MENU_BLUR_MORE               3915
#define IDS_MENU_SHARPENING_FILTERS      3916
#define IDS_MENU_SHARPEN                 3917
#define IDS_MENU_SHARPEN_MORE            3918
#define IDS_MENU_UNSHARP                 3919
#define IDS_MENU_SPECIAL_FILTERS         3920
#define IDS_MENU_EMBOSS                  3921
#define IDS_MENU_ADD_NOISE               3922
#define IDS_MENU_MINIMUM                 3923
#define IDS_MENU_MEDIAN                  3924
#define IDS_MENU_MAXIMUM                 3925
#define IDS_MENU_CUSTOM_FILTERS          3926
#define IDS_MENU_RESAMPLE                3927
#define IDS_MENU_COMBINE                 3928
#define IDS_MENU_EMPHASIZE               3929
#define IDS_MENU_COLORS                  3930
#define IDS_MENU_DARKEN                  3931
#define IDS_MENU_LIGHTEN                 3932
#define IDS_MENU_COLOURISE               3933
#define IDS_MENU_NEGATIVE                3934
#define IDS_MENU_GRAY_SCALE              3935
#define IDS_MENU_FLOYD_STEINBERG         3936
#define IDS_MENU_APPLY_PALETTE           3937
#define IDS_MENU_REDUCE                  3938
#define IDS_MENU_WINDOW                  3939
#define IDS_MENU_TILE_HORIZONTALLY       3940
#define IDS_MENU_TILE_VERTICALLY         3941
#define IDS_MENU_CASCADE                 3942
#define IDS_MENU_ARRANGE_ICONS           3943
#define IDS_MENU_HELP                    3944
#define IDS_MENU_ABOUT                   3945
#define IDS_MENU_LANGUAGE                3946
#define IDS_MENU_OPEN_BY_IMAGEMAGICK     3947
#define IDS_MENU_CLOSE                   3948
#define IDS_MENU_IMPORT                  3949
#define IDS_MENU_SELECT_SOURCE           3950
#define IDS_MENU_ACQUIRE                 3951
#define IDS_MENU_HELP_CONTENTS           3952
#define IDS_MENU_VECTORIZE               3953
// The key of shortcuts as menus show it.
#define IDS_KEY_CONTROL                  3954
#define IDS_MENU_CROP_TO_SELECTION       3955
#define IDS_MENU_CROP_TO_DRAWING         3956
#define IDS_MENU_MIRROR                  3957
#define IDS_MENU_FLIP                    3958
#define IDS_MENU_ROTATE_RIGHT            3959
#define IDS_MENU_ROTATE_LEFT             3960
#define IDS_MENU_ZOOM_IN                 3961
#define IDS_MENU_ZOOM_OUT                3962
#define IDS_MENU_ONE_TO_ONE              3963
#define IDS_MENU_FIT                     3964

// A picture's tool-tip, with position and colour of a pixel.
#define IDS_PIXEL_TIP                    3965
#define IDS_PIXEL_BLACK                  3966
#define IDS_PIXEL_WHITE                  3967

#define IDS_IMAGE_NOTHING_DARK           3968

// The main window without a picture.
#define IDS_START_HINT                   3969
#define IDS_START_RECENT                 3970
#define IDS_START_FIRST_LOGO             3971

// Main window: what the shell answers when a file or a page cannot be opened.
#define IDS_SHELL_OUT_OF_MEMORY          4000
#define IDS_SHELL_FILE_NOT_FOUND         4001
#define IDS_SHELL_PATH_NOT_FOUND         4002
#define IDS_SHELL_BAD_FORMAT             4003
#define IDS_SHELL_ACCESS_DENIED          4004
#define IDS_SHELL_INCOMPLETE_ASSOCIATION 4005
#define IDS_SHELL_DDE_BUSY               4006
#define IDS_SHELL_DDE_FAILED             4007
#define IDS_SHELL_DDE_TIMEOUT            4008
#define IDS_SHELL_DLL_NOT_FOUND          4009
#define IDS_SHELL_CANCELLED              4010
#define IDS_SHELL_NO_ASSOCIATION         4011
#define IDS_SHELL_OUT_OF_MEMORY_2        4012
#define IDS_SHELL_NOT_SUPPORTED          4013
#define IDS_SHELL_SHARING_VIOLATION      4014
#define IDS_SHELL_ERROR                  4015

// Main window: messages and file dialog filters.
#define IDS_SELECT_IMAGE                 4016
#define IDS_FILTER_PICTURES              4017
#define IDS_FILTER_SCRIPTS               4018
#define IDS_COLOUR_DEPTH                 4019
#define IDS_COLOUR_DEPTH_RESTART         4020
#define IDS_PASTE_ERROR                  4021
#define IDS_SCANNER_LIBRARY_MISSING      4022
#define IDS_SCANNER_NEEDS_32_BIT         4023
#define IDS_FILTER_ALL_FILES             4024
#define IDS_SCAN_ERROR                   4025
#define IDS_HELP_MISSING                 4026
#define IDS_ERROR_TITLE                  4027
#define IDS_CLIPBOARD_EMPTY              4028
#define IDS_NO_SUCH_LANGUAGE             4030

// About box and splash window.
#define IDS_ABOUT_TEXT                   4200
#define IDS_ABOUT_NO_SYSTEM_INFO         4201
#define IDS_ABOUT_TITLE                  4202
#define IDS_ABOUT_VERSION                4203
#define IDS_ABOUT_SYSTEM_INFO            4204
#define IDS_ABOUT_OK                     4205
#define IDS_SPLASH_LOADING               4206
#define IDS_PRODUCT_NAME                 4207
#define IDS_PRODUCT_PURPOSE              4208

// Noise dialog.
#define IDS_NOISE_TITLE                  4300
#define IDS_NOISE_AMOUNT                 4301
#define IDS_NOISE_RANDOM                 4302
#define IDS_NOISE_PREVIEW                4303
#define IDS_NOISE_OK                     4304
#define IDS_NOISE_CANCEL                 4305
#define IDS_NOISE_INVALID                4306

// Hue dialog.
#define IDS_HUE_TITLE                    4400
#define IDS_HUE_VALUE                    4401
#define IDS_HUE_PREVIEW                  4402
#define IDS_HUE_OK                       4403
#define IDS_HUE_CANCEL                   4404
#define IDS_HUE_INVALID                  4405
#define IDS_HUE_MEANING                  4406

// Palette dialog.
#define IDS_PALETTE_TITLE                4410
#define IDS_PALETTE_FILE                 4411
#define IDS_PALETTE_BROWSE               4412
#define IDS_PALETTE_COLOURS              4413
#define IDS_PALETTE_OK                   4414
#define IDS_PALETTE_CANCEL               4415
#define IDS_PALETTE_FILTER               4416
#define IDS_PALETTE_ERROR                4417
#define IDS_PALETTE_EMPTY                4418
#define IDS_PALETTE_SELECT               4419
#define IDS_PALETTE_PREVIEW              4420

// Combination dialog.
#define IDS_COMBINE_TITLE                4500
#define IDS_COMBINE_FIRST                4501
#define IDS_COMBINE_SECOND               4502
#define IDS_COMBINE_TYPE                 4503
#define IDS_COMBINE_ADD                  4504
#define IDS_COMBINE_LIGHTEST             4505
#define IDS_COMBINE_DARKEST              4506
#define IDS_COMBINE_MULTIPLIER           4507
#define IDS_COMBINE_OFFSET               4508
#define IDS_COMBINE_OK                   4509
#define IDS_COMBINE_CANCEL               4510
#define IDS_COMBINE_SELECT_TWO           4511
#define IDS_COMBINE_NEW_SIZE             4512
#define IDS_COMBINE_RESAMPLED            4513
#define IDS_COMBINE_INVALID              4514
#define IDS_COMBINE_PREVIEW              4515

// Language dialog; its title and its label name the choice in both languages.
#define IDS_LANGUAGE_TITLE               4600
#define IDS_LANGUAGE_LIST                4601
#define IDS_LANGUAGE_OK                  4603
#define IDS_LANGUAGE_CANCEL              4604

// Custom filter editor; 4708-4715 are the starting kernels, in list order.
#define IDS_CUSTOM_TITLE                 4700
#define IDS_CUSTOM_WEIGHT                4701
#define IDS_CUSTOM_BASE_ON               4702
#define IDS_CUSTOM_AUTO                  4703
#define IDS_CUSTOM_OK                    4704
#define IDS_CUSTOM_CANCEL                4705
#define IDS_CUSTOM_BLACK                 4706
#define IDS_CUSTOM_TOO_SMALL             4707
#define IDS_CUSTOM_BASE_NONE             4708
#define IDS_CUSTOM_BASE_RESET            4709
#define IDS_CUSTOM_BASE_BLUR             4710
#define IDS_CUSTOM_BASE_BLUR_MORE        4711
#define IDS_CUSTOM_BASE_SOFTEN           4712
#define IDS_CUSTOM_BASE_SOFTEN_MORE      4713
#define IDS_CUSTOM_BASE_SHARPEN          4714
#define IDS_CUSTOM_BASE_SHARPEN_MORE     4715
#define IDS_CUSTOM_PREVIEW               4716

// Export dialog.
#define IDS_EXPORT_TITLE                 4800
#define IDS_EXPORT_OPTIONS               4801
#define IDS_EXPORT_LAYER                 4802
#define IDS_EXPORT_VERSION               4803
#define IDS_EXPORT_SIZE                  4804
#define IDS_EXPORT_UNIT                  4805
#define IDS_EXPORT_TRACING               4806
#define IDS_EXPORT_FULL                  4807
#define IDS_EXPORT_FULL_POLYGON          4808
#define IDS_EXPORT_FULL_WIRE             4809
#define IDS_EXPORT_LINEWISE              4810
#define IDS_EXPORT_LINEWISE_POLYGON      4811
#define IDS_EXPORT_LINEWISE_WIRE         4812
#define IDS_EXPORT_LINEWISE_RECTANGLE    4813
#define IDS_EXPORT_PREVIEW               4814
#define IDS_EXPORT_ERROR                 4815
#define IDS_EXPORT_HINT                  4816
#define IDS_EXPORT_OK                    4817
#define IDS_EXPORT_CANCEL                4818

// Out-of-range warning: its message is the first three texts joined.
#define IDS_RANGE_TEXT_1                 4819
#define IDS_RANGE_TEXT_2                 4820
#define IDS_RANGE_TEXT_3                 4821
#define IDS_RANGE_TITLE                  4822
#define IDS_RANGE_DELETE                 4823
#define IDS_RANGE_CLOSE                  4824

// Title of the dialog that asks for the script file.
#define IDS_EXPORT_FILE_TITLE            4825

// Additions to the export dialog: its controls, its hints, its result and what is told afterwards.
#define IDS_EXPORT_WIDTH                 4826
#define IDS_EXPORT_MIRROR                4827
#define IDS_EXPORT_HINT_OUTLINE          4828
#define IDS_EXPORT_HINT_MIRROR           4829
#define IDS_EXPORT_SIZES                 4830
#define IDS_EXPORT_COUNTING              4831
#define IDS_EXPORT_ONE_POLYGON           4832
#define IDS_EXPORT_POLYGONS              4833
#define IDS_EXPORT_ONE_WIRE              4834
#define IDS_EXPORT_WIRES                 4835
#define IDS_EXPORT_ONE_RECTANGLE         4836
#define IDS_EXPORT_RECTANGLES            4837
#define IDS_EXPORT_NO_SIZE               4838
#define IDS_EXPORT_NOTHING_DARK          4839
#define IDS_EXPORT_THIN_LINE             4840
#define IDS_EXPORT_THIN_GAP              4841
#define IDS_EXPORT_OUTLINE_LAYER         4842
#define IDS_EXPORT_NOT_MIRRORED          4843
#define IDS_EXPORT_MANY_OBJECTS          4844
#define IDS_EXPORT_OUT_OF_RANGE          4845
#define IDS_EXPORT_WRITTEN               4846
#define IDS_EXPORT_SMOOTH                4847
#define IDS_EXPORT_POINTS                4848

// Image window; a name, a file or a cause follows where a text ends in a blank.
#define IDS_IMAGE_NAME                   4900
#define IDS_IMAGE_CAPTION                4901
#define IDS_IMAGE_COPY_ERROR             4902
#define IDS_IMAGE_PROCESS_ERROR          4903
#define IDS_IMAGE_BUSY                   4904
#define IDS_IMAGE_CHANGED_1              4905
#define IDS_IMAGE_CHANGED_2              4906
#define IDS_IMAGE_ASK_SAVE               4907
#define IDS_IMAGE_OPENING                4908
#define IDS_IMAGE_OPENED                 4909
#define IDS_IMAGE_OPEN_ERROR             4910
#define IDS_IMAGE_SAVE_FILTER            4911
#define IDS_IMAGE_SAVE_ERROR             4912
#define IDS_IMAGE_COMPLETE               4913
#define IDS_IMAGE_TRY_IMAGEMAGICK        4914
#define IDS_IMAGE_REDUCED                4915
#define IDS_IMAGE_INK                    4916

// Size dialog.
#define IDS_SIZE_TITLE                   5000
#define IDS_SIZE_NEW                     5001
#define IDS_SIZE_WIDTH                   5002
#define IDS_SIZE_HEIGHT                  5003
#define IDS_SIZE_PIXELS                  5004
#define IDS_SIZE_KEEP_RATIO              5005
#define IDS_SIZE_OK                      5006
#define IDS_SIZE_CANCEL                  5007
#define IDS_SIZE_INVALID                 5008

// Picture buffer.
#define IDS_NO_DIB_TO_CLIPBOARD          6000

// Processing engine.
#define IDS_ENGINE_FILTER_TYPE           6100
#define IDS_ENGINE_EVEN_SIZE             6101
#define IDS_ENGINE_SIZE                  6102

// What is wrong with a file: the end of a message.
#define IDS_FILE_NOT_FOUND               6200
#define IDS_FILE_NO_ACCESS               6201
#define IDS_FILE_NO_SPACE                6202
#define IDS_FILE_IS_FOLDER               6203
#define IDS_FILE_UNREADABLE              6204
#define IDS_FILE_UNWRITABLE              6205
#define IDS_FILE_OVER_2_GB               6206
#define IDS_FILE_EMPTY                   6207
#define IDS_FILE_DAMAGED                 6208
#define IDS_FILE_UNKNOWN_FORMAT          6209
#define IDS_FILE_NO_PICTURE              6210
#define IDS_FILE_TOO_LARGE               6211
#define IDS_FILE_TOO_LARGE_FOR_BITMAP    6212
#define IDS_FILE_NO_MEMORY               6213
#define IDS_FILE_NO_COLOUR               6214
#define IDS_FILE_NO_PIXELS               6215

// A file that could not be opened by the converter.
#define IDS_OPEN_ERROR_TITLE             7000
#define IDS_OPEN_ERROR_FORMATS           7001
#define IDS_OPEN_ERROR_CLOSE             7002

// Files with several images.
#define IDS_SEVERAL_TITLE                7100
#define IDS_SEVERAL_TEXT_1               7101
#define IDS_SEVERAL_TEXT_2               7102
#define IDS_SEVERAL_NOT_AGAIN            7103
#define IDS_SEVERAL_OK                   7104

// Choice of one image of several.
#define IDS_SUBIMAGE_TITLE               7200
#define IDS_SUBIMAGE_SELECT              7201
#define IDS_SUBIMAGE_NUMBER              7202
#define IDS_SUBIMAGE_OK                  7203
#define IDS_SUBIMAGE_CANCEL              7204

// Where the converter is; 7312 and the following: while it runs.
#define IDS_MAGICK_TITLE                 7300
#define IDS_MAGICK_TEXT                  7301
#define IDS_MAGICK_CONVERT               7302
#define IDS_MAGICK_CONVERT_BROWSE        7303
#define IDS_MAGICK_IDENTIFY              7304
#define IDS_MAGICK_IDENTIFY_BROWSE       7305
#define IDS_MAGICK_DOWNLOAD              7306
#define IDS_MAGICK_GHOSTSCRIPT           7307
#define IDS_MAGICK_OK                    7308
#define IDS_MAGICK_CANCEL                7309
#define IDS_MAGICK_CONVERT_FILTER        7310
#define IDS_MAGICK_IDENTIFY_FILTER       7311
#define IDS_MAGICK_CONVERTING            7312
#define IDS_MAGICK_NO_FORMATS            7313
#define IDS_MAGICK_NO_PICTURE            7314
#define IDS_MAGICK_REPORT                7315
#define IDS_MAGICK_NOT_FOUND             7320
#define IDS_MAGICK_OTHER_PROGRAM         7321

// Black and white reduction dialog.
#define IDS_REDUCE_TITLE                 7400
#define IDS_REDUCE_TYPE                  7401
#define IDS_REDUCE_BRIGHTNESS            7402
#define IDS_REDUCE_COLOURS               7403
#define IDS_REDUCE_EDGES                 7404
#define IDS_REDUCE_LIMIT                 7405
#define IDS_REDUCE_RED                   7406
#define IDS_REDUCE_GREEN                 7407
#define IDS_REDUCE_BLUE                  7408
#define IDS_REDUCE_PREVIEW               7409
#define IDS_REDUCE_OK                    7410
#define IDS_REDUCE_CANCEL                7411
#define IDS_REDUCE_NO_COLOUR             7412
#define IDS_REDUCE_HINT                  7413
#define IDS_REDUCE_AUTO                  7414
#define IDS_REDUCE_UNEVEN                7415
#define IDS_REDUCE_SIZE                  7416
#define IDS_REDUCE_OFFSET                7417
#define IDS_REDUCE_UNEVEN_HINT           7418
#define IDS_REDUCE_INVERT                7419
#define IDS_REDUCE_CLEAN                 7420
#define IDS_REDUCE_SPECK_UNIT            7421
#define IDS_REDUCE_INVALID               7422
#define IDS_REDUCE_ODD                   7423

// EAGLE's layer names: in one language only, looked up without an offset. The list has no name for
// layer 50, so from there on the name at a position is that of the next layer; "Userdefined" is
// appended to the numbers that have no name.
#define IDS_LAYER_FIRST                  20000
#define IDS_LAYER_USERDEFINED            20051
#define IDS_LAYER_LAST                   20057

#endif
