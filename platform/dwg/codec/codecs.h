#pragma once

#include <vector>

#include "platform/dwg/DwgCodec.h"

// Each adds the codecs of one family of classes.
void AddCurveCodecs(std::vector<DwgCodec>& codecs);
void AddTextCodecs(std::vector<DwgCodec>& codecs);
void AddSplineCodecs(std::vector<DwgCodec>& codecs);
void AddHatchCodecs(std::vector<DwgCodec>& codecs);
void AddBlockCodecs(std::vector<DwgCodec>& codecs);
void AddStyleCodecs(std::vector<DwgCodec>& codecs);
void AddViewCodecs(std::vector<DwgCodec>& codecs);
void AddNameTableCodecs(std::vector<DwgCodec>& codecs);
void AddDictionaryCodecs(std::vector<DwgCodec>& codecs);
void AddLayoutCodecs(std::vector<DwgCodec>& codecs);
