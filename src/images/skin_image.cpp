#include "images/skin_image.h"

#include <cstdlib>

SkinImage::~SkinImage() {
    ReleaseSkinImage(*this);
    ReleaseSkinBitmap(*this);
}

void ReleaseSkinImage(SkinImage& image) {
    free(image.red);
    free(image.green);
    free(image.blue);
    free(image.alpha);
    image.red = image.green = image.blue = image.alpha = nullptr;
    image.width = 0;
    image.height = 0;
}

void ReleaseSkinBitmap(SkinImage& image) {
    if (image.bitmap) DeleteObject(image.bitmap);
    image.bitmap = nullptr;
    image.bitmapWidth = 0;
    image.bitmapHeight = 0;
}
