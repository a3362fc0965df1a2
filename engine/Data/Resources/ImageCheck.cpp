#include "Data/Resources/ImageCheck.h"

#include <cstdint>

namespace VantrelEngine {

using namespace Corrade;

namespace {

using Bytes = Containers::ArrayView<const unsigned char>;

// Walks over the segments of a JPEG file as the decoder does.
class JpegCheck {
public:
    explicit JpegCheck(Bytes bytes): _bytes{bytes} {}

    bool isJpeg() { return nextMarker() == StartOfImage; }

    // Expects that isJpeg() was asked. What the decoder itself refuses may be fine here.
    const char* problem() {
        while(true) {
            const unsigned marker = nextMarker();
            if(marker == EndOfImage || marker == None) return nullptr;
            if(!enterSegment()) return "a segment of the JPEG file is damaged";
            if(marker >= FirstFrame && marker <= ProgressiveFrame && !_hasFrame) {
                _hasFrame = true;
                _isProgressive = marker == ProgressiveFrame;
            }
            if(marker == HuffmanTables && !readTables()) return "a Huffman table of the JPEG file is damaged";
            if(marker == StartOfScan && !hasTables()) return "a Huffman table of the JPEG file is missing";
            _position = _end;
            if(marker == StartOfScan) skipData();
        }
    }

private:
    enum Marker : unsigned {
        None = 0,
        FirstFrame = 0xc0,
        ProgressiveFrame = 0xc2,
        HuffmanTables = 0xc4,
        FirstRestart = 0xd0,
        LastRestart = 0xd7,
        StartOfImage = 0xd8,
        EndOfImage = 0xd9,
        StartOfScan = 0xda
    };
    static constexpr std::size_t CodeLengths = 16;
    static constexpr unsigned MaximumSymbols = 256;

    bool isAtEnd() const { return _position >= _bytes.size(); }

    // Past whatever stands before it.
    unsigned nextMarker() {
        while(!isAtEnd() && _bytes[_position] != 0xff) ++_position;
        while(!isAtEnd() && _bytes[_position] == 0xff) ++_position;
        return isAtEnd() ? unsigned(None) : _bytes[_position++];
    }

    bool enterSegment() {
        if(_bytes.size() - _position < 2) return false;
        const std::size_t size = std::size_t{_bytes[_position]} << 8 | _bytes[_position + 1];
        if(size < 2 || size > _bytes.size() - _position) return false;
        _end = _position + size;
        _position += 2;
        return true;
    }

    bool readTables() {
        while(_position != _end) {
            if(_end - _position < 1 + CodeLengths) return false;
            const unsigned table = _bytes[_position++];
            unsigned symbols = 0;
            for(std::size_t i = 0; i != CodeLengths; ++i) symbols += _bytes[_position++];
            if(table >> 4 > 1 || (table & 15) > 3 || symbols > MaximumSymbols || symbols > _end - _position)
                return false;
            _position += symbols;
            _tables |= bit(table);
        }
        return true;
    }

    // Of the components of a scan. A progressive one has DC or AC coefficients, never both.
    bool hasTables() const {
        if(_end - _position < 1) return false;
        const std::size_t count = _bytes[_position];
        if(_end - _position != 1 + 2 * count + 3) return false;
        const bool isDcOnly = _isProgressive && _bytes[_end - 3] == 0;
        const bool isAcOnly = _isProgressive && _bytes[_end - 3] != 0;
        for(std::size_t i = 0; i != count; ++i) {
            const unsigned tables = _bytes[_position + 2 + 2 * i];
            if((tables >> 4) > 3 || (tables & 15) > 3) return false;
            if(!isAcOnly && !(_tables & bit(tables >> 4))) return false;
            if(!isDcOnly && !(_tables & bit(0x10 | (tables & 15)))) return false;
        }
        return true;
    }

    // To the marker that ends it. Zero bytes and restarts are part of the data.
    void skipData() {
        for(; _bytes.size() - _position > 1; ++_position) {
            const unsigned next = _bytes[_position + 1];
            const bool isData = next == 0 || next == 0xff || (next >= FirstRestart && next <= LastRestart);
            if(_bytes[_position] == 0xff && !isData) return;
        }
    }

    // The first digit of a table is 0 for one of DC and 1 for one of AC coefficients.
    static unsigned bit(unsigned table) { return 1u << (table >> 4) * 4 << (table & 15); }

    Bytes _bytes;
    std::size_t _position = 0;
    // Of the segment.
    std::size_t _end = 0;
    // Those that are there.
    unsigned _tables = 0;
    bool _hasFrame = false;
    bool _isProgressive = false;
};

// Little-endian.
std::size_t word(Bytes bytes, std::size_t offset) {
    return std::size_t{bytes[offset]} | std::size_t{bytes[offset + 1]} << 8;
}
std::size_t doubleWord(Bytes bytes, std::size_t offset) { return word(bytes, offset) | word(bytes, offset + 2) << 16; }

constexpr std::size_t TgaHeaderSize = 18;
// The kinds of TGA: palettes, colours and grey values, and 8 more for each of them packed.
constexpr unsigned TgaKinds = 3, PackedTga = 8;

// Whether packets for so many pixels are there. The highest bit of a packet's first byte says that one pixel is repeated;
// the others are one less than how many pixels it is for.
bool holdsPackets(Bytes bytes, std::size_t position, std::size_t pixels, std::size_t pixelSize) {
    for(std::size_t done = 0; done < pixels;) {
        if(position >= bytes.size()) return false;
        const std::size_t count = (bytes[position] & 127u) + 1;
        position += 1 + (bytes[position] & 128u ? 1 : count) * pixelSize;
        done += count;
    }
    return position <= bytes.size();
}

bool isTruncatedTga(Bytes bytes) {
    if(bytes.size() < TgaHeaderSize || bytes[1] > 1) return false;
    const bool isPacked = bytes[2] > PackedTga;
    const unsigned kind = bytes[2] - (isPacked ? PackedTga : 0u);
    if(kind == 0 || kind > TgaKinds) return false;
    const std::size_t palette = bytes[1] ? word(bytes, 5) * ((bytes[7] + 7u) / 8u) : 0;
    const std::size_t begin = TgaHeaderSize + bytes[0] + palette, pixels = word(bytes, 12) * word(bytes, 14);
    const std::size_t pixelSize = (bytes[16] + 7u) / 8u;
    return isPacked ? !holdsPackets(bytes, begin, pixels, pixelSize) : begin + pixels * pixelSize > bytes.size();
}

// Negative heights are of files whose rows go downwards.
std::size_t magnitude(std::size_t number) { return number >> 31 ? (std::size_t{1} << 32) - number : number; }

// Where it is compressed, the decoder refuses it. Rows are padded to four bytes; what pads the last one may be missing.
bool isTruncatedBmp(Bytes bytes) {
    constexpr std::size_t HeaderSize = 26, LargeHeaderSize = 34;
    if(bytes.size() < 2 || bytes[0] != 'B' || bytes[1] != 'M') return false;
    if(bytes.size() < HeaderSize) return true;
    const bool isOld = doubleWord(bytes, 14) == 12;
    if(!isOld && bytes.size() < LargeHeaderSize) return true;
    const std::size_t width = isOld ? word(bytes, 18) : magnitude(doubleWord(bytes, 18));
    const std::size_t height = isOld ? word(bytes, 20) : magnitude(doubleWord(bytes, 22));
    const std::size_t rowBits = width * word(bytes, isOld ? 24 : 28);
    if(height == 0) return false;
    return doubleWord(bytes, 10) + (rowBits + 31) / 32 * 4 * (height - 1) + (rowBits + 7) / 8 > bytes.size();
}

// Walks over the pixels of an HDR file as the decoder does.
class HdrCheck {
public:
    explicit HdrCheck(Bytes bytes, const Magnum::Vector2i& size):
        _bytes{bytes}, _width(std::size_t(size.x())), _height(std::size_t(size.y())) {}

    bool isTruncated() {
        skipHeader();
        if(_width < MinimumPackedWidth || _width > MaximumPackedWidth) return !holds(_width * _height * 4);
        for(std::size_t row = 0; row != _height; ++row) {
            if(!holds(4)) return true;
            const bool isPacked = _bytes[_position] == 2 && _bytes[_position + 1] == 2 && _bytes[_position + 2] < 128;
            // These four bytes are the first pixel then, and the others follow.
            if(!isPacked) return !holds(_width * _height * 4);
            _position += 4;
            for(int channel = 0; channel != 4; ++channel)
                if(!skipRuns()) return true;
        }
        return false;
    }

private:
    // Others are never packed.
    static constexpr std::size_t MinimumPackedWidth = 8, MaximumPackedWidth = 32767;

    bool holds(std::size_t size) const { return size <= _bytes.size() - _position; }

    void skipLine() {
        while(holds(1) && _bytes[_position] != '\n') ++_position;
        if(holds(1)) ++_position;
    }

    // Lines up to an empty one, and the one with the size.
    void skipHeader() {
        skipLine();
        while(holds(1) && _bytes[_position] != '\n' && _bytes[_position] != '\0') skipLine();
        skipLine();
        skipLine();
    }

    // Of one channel of a row: a count above 128 stands for one byte that is repeated, any other for as many bytes.
    bool skipRuns() {
        for(std::size_t done = 0; done < _width;) {
            if(!holds(1)) return false;
            const std::size_t count = _bytes[_position++];
            const std::size_t size = count > 128 ? 1 : count;
            if(!holds(size)) return false;
            _position += size;
            done += count > 128 ? count - 128 : count;
        }
        return true;
    }

    Bytes _bytes;
    const std::size_t _width, _height;
    std::size_t _position = 0;
};

} // namespace

bool isTruncatedHdr(Bytes bytes, const Magnum::Vector2i& size) { return HdrCheck{bytes, size}.isTruncated(); }

const char* whyNotDecodable(Bytes bytes) {
    JpegCheck jpeg{bytes};
    if(!bytes.isEmpty() && bytes[0] == 0xff && jpeg.isJpeg()) return jpeg.problem();
    if(isTruncatedTga(bytes)) return "the TGA file is truncated";
    return isTruncatedBmp(bytes) ? "the BMP file is truncated" : nullptr;
}

} // namespace VantrelEngine
