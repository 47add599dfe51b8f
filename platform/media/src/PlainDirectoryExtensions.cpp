#include "PlainDirectoryExtensions.h"

namespace Plug {

std::vector<Fnd::WString> PlainDirectoryVideoExtensions() {
    return {u"3gp", u"ari", u"avi",  u"braw", u"dv",  u"m2t", u"m2ts", u"m2v", u"m4v", u"mkv", u"mod",
            u"mov", u"mp4", u"mpeg", u"mpg",  u"mts", u"mxf", u"r3d",  u"tod", u"vob", u"webm"};
}

std::vector<Fnd::WString> PlainDirectoryAudioExtensions() {
    return {u"aac", u"aif", u"aifc", u"aiff", u"bwf", u"flac", u"m4a", u"mp3", u"ogg", u"wav"};
}

std::vector<Fnd::WString> PlainDirectoryStillExtensions() {
    return {u"bmp",  u"dng", u"dpx", u"exr", u"gif", u"heic",
            u"jpeg", u"jpg", u"png", u"tga", u"tif", u"tiff"};
}

} // namespace Plug
