// Dialogs and their controls, a block for each form. Controls that show nothing but a caption are
// numbered like the others: captions come from the string table.
#ifndef KELVANE_RES_IDS_DIALOGS_H
#define KELVANE_RES_IDS_DIALOGS_H

// Export dialog.
#define IDD_EXPORT                       200
#define IDC_EXPORT_OPTIONS               1100
#define IDC_EXPORT_LAYER_LABEL           1101
#define IDC_EXPORT_LAYER                 1102
#define IDC_EXPORT_VERSION_LABEL         1103
#define IDC_EXPORT_VERSION               1104
#define IDC_EXPORT_SIZE_LABEL            1105
#define IDC_EXPORT_SIZE                  1106
#define IDC_EXPORT_UNIT_LABEL            1107
#define IDC_EXPORT_UNIT                  1108
#define IDC_EXPORT_TRACING               1109
#define IDC_EXPORT_FULL                  1110
#define IDC_EXPORT_LINEWISE              1111
#define IDC_EXPORT_FULL_POLYGON          1112
#define IDC_EXPORT_FULL_WIRE             1113
#define IDC_EXPORT_LINEWISE_POLYGON      1114
#define IDC_EXPORT_LINEWISE_WIRE         1115
#define IDC_EXPORT_LINEWISE_RECTANGLE    1116
#define IDC_EXPORT_PREVIEW_LABEL         1117
#define IDC_EXPORT_PREVIEW               1118
#define IDC_EXPORT_HINT                  1119
#define IDC_EXPORT_WIDTH_LABEL           1120
#define IDC_EXPORT_WIDTH                 1121
#define IDC_EXPORT_WIDTH_UNIT            1122
#define IDC_EXPORT_MIRROR                1123
#define IDC_EXPORT_RESULT                1124
#define IDC_EXPORT_SMOOTH                1125

// Out-of-range warning.
#define IDD_RANGE                        201
#define IDC_RANGE_ICON                   1150
#define IDC_RANGE_TEXT                   1151
#define IDC_RANGE_DELETE                 1152

// Custom filter editor; 49 cells from IDC_CUSTOM_CELL on, row by row.
#define IDD_CUSTOM                       202
#define IDC_CUSTOM_CELL                  1200
#define IDC_CUSTOM_BASE_LABEL            1250
#define IDC_CUSTOM_BASE                  1251
#define IDC_CUSTOM_WEIGHT_LABEL          1252
#define IDC_CUSTOM_WEIGHT                1253
#define IDC_CUSTOM_AUTO                  1254
#define IDC_CUSTOM_PREVIEW_LABEL         1255
#define IDC_CUSTOM_PREVIEW               1256

// Black and white reduction dialog; reductions and sliders in one order.
#define IDD_REDUCE                       203
#define IDC_REDUCE_TYPE                  1300
#define IDC_REDUCE_BRIGHTNESS            1301
#define IDC_REDUCE_COLOURS               1302
#define IDC_REDUCE_EDGES                 1303
#define IDC_REDUCE_UNEVEN                1304
#define IDC_REDUCE_LIMIT_LABEL           1305
#define IDC_REDUCE_AUTO                  1306
#define IDC_REDUCE_BRIGHTNESS_LIMIT      1307
#define IDC_REDUCE_COLOUR_LIMIT          1308
#define IDC_REDUCE_EDGE_LIMIT            1309
#define IDC_REDUCE_LIMIT                 1310
#define IDC_REDUCE_RED                   1311
#define IDC_REDUCE_GREEN                 1312
#define IDC_REDUCE_BLUE                  1313
#define IDC_REDUCE_SIZE_LABEL            1314
#define IDC_REDUCE_SIZE                  1315
#define IDC_REDUCE_SIZE_SPIN             1316
#define IDC_REDUCE_OFFSET_LABEL          1317
#define IDC_REDUCE_OFFSET                1318
#define IDC_REDUCE_OFFSET_SPIN           1319
#define IDC_REDUCE_HINT                  1320
#define IDC_REDUCE_INVERT                1321
#define IDC_REDUCE_CLEAN                 1322
#define IDC_REDUCE_SPECK                 1323
#define IDC_REDUCE_SPECK_SPIN            1324
#define IDC_REDUCE_SPECK_UNIT            1325
#define IDC_REDUCE_PREVIEW_LABEL         1326
#define IDC_REDUCE_OVERVIEW              1327
#define IDC_REDUCE_DETAIL                1328

#define IDD_NEW_SIZE                     204
#define IDC_SIZE_FRAME                   1400
#define IDC_SIZE_WIDTH_LABEL             1401
#define IDC_SIZE_WIDTH                   1402
#define IDC_SIZE_WIDTH_PIXELS            1403
#define IDC_SIZE_HEIGHT_LABEL            1404
#define IDC_SIZE_HEIGHT                  1405
#define IDC_SIZE_HEIGHT_PIXELS           1406
#define IDC_SIZE_KEEP_RATIO              1407

#define IDD_NOISE                        205
#define IDC_NOISE_AMOUNT_LABEL           1420
#define IDC_NOISE_AMOUNT                 1421
#define IDC_NOISE_SLIDER                 1422
#define IDC_NOISE_RANDOM                 1423
#define IDC_NOISE_PREVIEW_LABEL          1424
#define IDC_NOISE_PREVIEW                1425

#define IDD_HUE                          206
#define IDC_HUE_VALUE_LABEL              1440
#define IDC_HUE_VALUE                    1441
#define IDC_HUE_SPECTRUM                 1442
#define IDC_HUE_SLIDER                   1443
#define IDC_HUE_PREVIEW_LABEL            1444
#define IDC_HUE_PREVIEW                  1445
#define IDC_HUE_MEANING                  1446

#define IDD_PALETTE                      207
#define IDC_PALETTE_FILE_LABEL           1460
#define IDC_PALETTE_FILE                 1461
#define IDC_PALETTE_BROWSE               1462
#define IDC_PALETTE_COUNT                1463
#define IDC_PALETTE_COLOURS              1464
#define IDC_PALETTE_PREVIEW_LABEL        1465
#define IDC_PALETTE_PREVIEW              1466

#define IDD_COMBINATION                  208
#define IDC_COMBINE_FIRST_LABEL          1480
#define IDC_COMBINE_FIRST                1481
#define IDC_COMBINE_SECOND_LABEL         1482
#define IDC_COMBINE_SECOND               1483
#define IDC_COMBINE_MULTIPLIER_LABEL     1484
#define IDC_COMBINE_OFFSET_LABEL         1485
#define IDC_COMBINE_MULTIPLIER_1         1486
#define IDC_COMBINE_OFFSET_1             1487
#define IDC_COMBINE_MULTIPLIER_2         1488
#define IDC_COMBINE_OFFSET_2             1489
#define IDC_COMBINE_FRAME                1490
#define IDC_COMBINE_ADD                  1491
#define IDC_COMBINE_LIGHTEST             1492
#define IDC_COMBINE_DARKEST              1493
#define IDC_COMBINE_NEW_SIZE             1494
#define IDC_COMBINE_RESAMPLED            1495
#define IDC_COMBINE_PREVIEW_LABEL        1496
#define IDC_COMBINE_PREVIEW              1497

#define IDD_LANGUAGE                     209
#define IDC_LANGUAGE_LABEL               1500
#define IDC_LANGUAGE                     1501

#define IDD_SPLASH                       210
#define IDC_SPLASH_ICON                  1520
#define IDC_SPLASH_NAME                  1521
#define IDC_SPLASH_PURPOSE               1522
#define IDC_SPLASH_VERSION               1523
#define IDC_SPLASH_LOADING               1524

#define IDD_ABOUT                        211
#define IDC_ABOUT_ICON                   1540
#define IDC_ABOUT_NAME                   1541
#define IDC_ABOUT_VERSION                1542
#define IDC_ABOUT_TEXT                   1543
#define IDC_ABOUT_SYSTEM_INFO            1544

#define IDD_MAGICK                       212
#define IDC_MAGICK_TEXT                  1560
#define IDC_MAGICK_CONVERT_LABEL         1561
#define IDC_MAGICK_CONVERT               1562
#define IDC_MAGICK_CONVERT_BROWSE        1563
#define IDC_MAGICK_IDENTIFY_LABEL        1564
#define IDC_MAGICK_IDENTIFY              1565
#define IDC_MAGICK_IDENTIFY_BROWSE       1566
#define IDC_MAGICK_DOWNLOAD              1567
#define IDC_MAGICK_GHOSTSCRIPT           1568

#define IDD_SUBIMAGE                     213
#define IDC_SUBIMAGE_LABEL               1580
#define IDC_SUBIMAGE_LIST                1581
#define IDC_SUBIMAGE_NUMBER              1582

#define IDD_SEVERAL                      214
#define IDC_SEVERAL_ICON                 1600
#define IDC_SEVERAL_TEXT                 1601
#define IDC_SEVERAL_NOT_AGAIN            1602

#define IDD_OPEN_ERROR                   215
#define IDC_OPEN_ERROR_ICON              1620
#define IDC_OPEN_ERROR_TEXT              1621
#define IDC_OPEN_ERROR_FORMATS           1622

#endif
