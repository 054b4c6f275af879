#pragma once

#include <ZalCPP/Frame.h>

#include <QImage>
#include <QString>

/// Turns a camera's frame into an image that can be painted: 8-bit grey for Mono and Bayer formats
/// (Bayer without interpolating colours), 24-bit colour for RGB8 and BGR8. Formats of more than 8
/// bits keep their most significant ones.
///
/// On failure returns a null image and sets `problem` to a sentence for the user. The image owns
/// its pixels.
QImage convertFrame(const ZalCPP::Frame& frame, QString& problem);
