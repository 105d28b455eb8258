// The engine's face: tone and colour, palettes, reductions.
#include "engine/image_process.h"

#include "engine/picture_checks.h"
#include "process/diffusion.h"
#include "process/grayscale.h"
#include "process/tone.h"

namespace kelvane {
bool cImageProcessDIB::GrayScale(cDIBSection& cImage) {
    if (cImage.empty()) return false;
    kelvane::GrayScale(cImage.view(), observer_);
    return true;
}

bool cImageProcessDIB::Fade(cDIBSection& cImage, int level) {
    if (cImage.empty()) return false;
    kelvane::Fade(cImage.view(), level, observer_);
    return true;
}

bool cImageProcessDIB::Lighten(cDIBSection& cImage, int percent) {
    if (cImage.empty()) return false;
    kelvane::Lighten(cImage.view(), percent, observer_);
    return true;
}

bool cImageProcessDIB::Colourise(cDIBSection& cImage, float fHue, float /*fSaturation*/) {
    if (cImage.empty()) return false;
    kelvane::Colourise(cImage.view(), fHue, observer_);
    return true;
}

bool cImageProcessDIB::AddNoise(cDIBSection& cImage, int percent, bool bRandom) {
    if (cImage.empty()) return false;
    kelvane::AddNoise(cImage.view(), percent, bRandom, random_, observer_);
    return true;
}

bool cImageProcessDIB::NegativeImage(cDIBSection& cImage) {
    if (cImage.empty()) return false;
    kelvane::NegativeImage(cImage.view(), observer_);
    return true;
}

bool cImageProcessDIB::ApplyPalette(cDIBSection& cImage, cDIBSection& cBuffer,
                                    const cPalette& cPal) {
    if (!same_size(cImage, cBuffer) || cPal.Count() == 0) return false;
    kelvane::ApplyPalette(cImage.view(), cBuffer.view(), cPal, observer_);
    return true;
}

bool cImageProcessDIB::Steinberg(cDIBSection& cImage, cDIBSection& cBuffer) {
    if (!same_size(cImage, cBuffer)) return false;
    kelvane::Steinberg(cImage.view(), cBuffer.view(), observer_);
    return true;
}

bool cImageProcessDIB::Reduce(cDIBSection& cImage, const Reduction& reduction) {
    switch (reduction.kind) {
    case ReductionKind::Brightness:
        return BlackAndWhite(cImage, cImage, reduction.limit);
    case ReductionKind::Colours:
        return LineArt2(cImage, cImage, reduction.limit, reduction.channels);
    case ReductionKind::Edges:
        return EdgeDetect2(cImage, cImage, reduction.limit);
    }
    return false;
}

bool cImageProcessDIB::BlackAndWhite(cDIBSection& cSource, cDIBSection& cDestination, int limit) {
    if (!same_size(cSource, cDestination)) return false;
    kelvane::BlackAndWhite(cSource.view(), cDestination.view(), limit, observer_);
    return true;
}

bool cImageProcessDIB::BlackAndWhite2(cDIBSection& cSource, cDIBSection& cDestination, int limit) {
    if (!same_size(cSource, cDestination)) return false;
    kelvane::BlackAndWhite2(cSource.view(), cDestination.view(), limit, observer_);
    return true;
}

bool cImageProcessDIB::LineArt2(cDIBSection& cSource, cDIBSection& cDestination, int limit,
                                Channels channels) {
    if (!same_size(cSource, cDestination)) return false;
    if (!channels.red && !channels.green && !channels.blue) return false;
    kelvane::LineArt2(cSource.view(), cDestination.view(), limit, channels, observer_);
    return true;
}

bool cImageProcessDIB::EdgeDetect2(cDIBSection& cSource, cDIBSection& cDestination, int limit) {
    if (!same_size(cSource, cDestination)) return false;
    kelvane::EdgeDetect2(cSource.view(), cDestination.view(), limit, observer_);
    return true;
}

} // namespace kelvane
