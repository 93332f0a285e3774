#include "uJpegFile.h"

#include <algorithm>
#include <csetjmp>
#include <cstdlib>
#include <new>
#include <vector>

#include <jpeglib.h>

#include <jerror.h>

namespace murala
{

namespace
{

// A picture of several scans is decoded with all its coefficients in memory...
constexpr std::int64_t MaxCoefficientBytes = std::int64_t{512} << 20U;
// ...and every scan walks over all of them, even one of a few bytes.
constexpr std::int64_t MaxScanPixels = std::int64_t{1} << 31U;

// A piece of preparing takes some milliseconds for a picture of 12 megapixels.
constexpr int BlockRowsPerPiece = 32;

// libjpeg's way to give up: nothing may be thrown through its frames, so it jumps out of them.
struct TErrorManager : jpeg_error_mgr {
    TErrorManager()
    {
        jpeg_std_error(this);
        error_exit = [](j_common_ptr info) {
            std::longjmp(static_cast<TErrorManager*>(info->err)->Jump, 1);
        };
        output_message = [](j_common_ptr) {};
    }

    // Runs a step of libjpeg; false when it gave up. A jump runs no destructor: the step must not
    // own anything.
    template<typename TStep>
    bool Guarded(TStep step)
    {
        if (setjmp(Jump) != 0)
            return false;
        step();
        return true;
    }

    std::jmp_buf Jump;
};

template<typename TInfo>
std::string ErrorText(TInfo& info)
{
    char text[JMSG_LENGTH_MAX];
    info.err->format_message(reinterpret_cast<j_common_ptr>(&info), text);
    return std::string("JPEG: ") + text;
}

// A step that gave up for lack of memory throws std::bad_alloc: the picture is not at fault.
void CheckMemory(const jpeg_error_mgr& error)
{
    if (error.msg_code == JERR_OUT_OF_MEMORY)
        throw std::bad_alloc();
}

// Gives the file to libjpeg in large blocks; libjpeg's own source takes 4 KB at a time.
struct TFileSource : jpeg_source_mgr {
    explicit TFileSource(std::FILE* file) : jpeg_source_mgr{}, File(file), Block(1U << 16U)
    {
        init_source = [](j_decompress_ptr) {};
        fill_input_buffer = [](j_decompress_ptr info) -> boolean {
            static_cast<TFileSource*>(info->src)->Fill(info);
            return TRUE;
        };
        skip_input_data = [](j_decompress_ptr info, long count) {
            static_cast<TFileSource*>(info->src)->Skip(info, count);
        };
        resync_to_restart = jpeg_resync_to_restart;
        term_source = [](j_decompress_ptr) {};
    }

    // At the end of the file libjpeg is given an "end of image" marker, however often it asks.
    void Fill(j_decompress_ptr info)
    {
        std::size_t count = std::fread(Block.data(), 1, Block.size(), File);
        if (count == 0) {
            WARNMS(info, JWRN_JPEG_EOF);
            Block[0] = 0xFF;
            Block[1] = JPEG_EOI;
            count = 2;
        }
        next_input_byte = Block.data();
        bytes_in_buffer = count;
    }

    void Skip(j_decompress_ptr info, long count)
    {
        if (count <= 0)
            return;
        auto left = static_cast<std::size_t>(count);
        for (; left > bytes_in_buffer; Fill(info))
            left -= bytes_in_buffer;
        next_input_byte += left;
        bytes_in_buffer -= left;
    }

    std::FILE* File;
    std::vector<JOCTET> Block;
};

// Ends the decoding of a picture that has too many scans for its size.
struct TScanLimit : jpeg_progress_mgr {
    TScanLimit()
    {
        progress_monitor = [](j_common_ptr common) {
            auto* info = reinterpret_cast<j_decompress_ptr>(common);
            const std::int64_t pixels = std::int64_t{info->image_width} * info->image_height;
            if (info->input_scan_number * pixels > MaxScanPixels)
                info->err->error_exit(common);
        };
    }
};

// `isInverted`: 255 stands for no ink.
void InkToPixels(const JSAMPLE* ink, int width, bool isInverted, TPixel* row)
{
    const unsigned flip = isInverted ? 0 : 255;
    for (int x = 0; x < width; ++x, ink += 4) {
        const unsigned light = ink[3] ^ flip;
        const auto channel = [=](int i) { return ((ink[i] ^ flip) * light + 127) / 255; };
        row[x] = channel(0) << 16U | channel(1) << 8U | channel(2);
    }
}

struct TDecompressor : jpeg_decompress_struct {
    TDecompressor() : jpeg_decompress_struct{} {}
    TDecompressor(const TDecompressor&) = delete;
    TDecompressor& operator=(const TDecompressor&) = delete;
    ~TDecompressor() { jpeg_destroy_decompress(this); }
};

class TJpegReader : public TImageReader
{
public:
    explicit TJpegReader(TFile file) : m_file(std::move(file))
    {
        m_info.err = &m_error;
        Do([this] {
            jpeg_create_decompress(&m_info);
            m_info.src = &m_source;
            jpeg_read_header(&m_info, TRUE);
        });
    }

    void Start(TDecoding decoding)
    {
        CheckSize();
        m_isStrict = decoding.Strict;
        m_info.progress = &m_scanLimit;
        m_info.scale_denom = static_cast<unsigned>(decoding.Divisor);
        if (decoding.Fast) {
            m_info.dct_method = JDCT_IFAST;
            m_info.do_fancy_upsampling = FALSE;
        }
        ChooseColors();
        m_info.buffered_image = decoding.InPieces && jpeg_has_multiple_scans(&m_info);
        Do([this] { jpeg_start_decompress(&m_info); });
    }

    TSize Size() const override
    {
        if (m_info.output_width == 0)
            return {static_cast<int>(m_info.image_width), static_cast<int>(m_info.image_height)};
        return {static_cast<int>(m_info.output_width), static_cast<int>(m_info.output_height)};
    }

    bool Prepare() override
    {
        if (!m_info.buffered_image || m_isTakenIn)
            return false;
        Do([this] { TakeIn(); });
        return !m_isTakenIn;
    }

    // After an error that libjpeg cannot recover from, the remaining rows are black.
    void ReadRow(int y, TPixel* row) override
    {
        auto* samples = m_ink.empty() ? reinterpret_cast<JSAMPLE*>(row) : m_ink.data();
        if (!m_isBroken && !m_error.Guarded([=, this] { Decode(y, samples); })) {
            CheckMemory(m_error);
            m_isBroken = true;
        }
        if (m_isStrict && (m_isBroken || m_error.num_warnings > 0))
            throw EImageFormat(ErrorText(m_info));
        if (m_isBroken)
            std::fill_n(row, m_info.output_width, 0);
        else if (!m_ink.empty())
            InkToPixels(m_ink.data(), Size().Width, m_info.saw_Adobe_marker != 0, row);
    }

private:
    template<typename TStep>
    void Do(TStep step)
    {
        if (m_error.Guarded(step))
            return;
        CheckMemory(m_error);
        throw EImageFormat(ErrorText(m_info));
    }

    void CheckSize()
    {
        if (!IsUsable(Size()))
            throw EImageFormat("JPEG: the size is out of range");
        if (!jpeg_has_multiple_scans(&m_info))
            return;
        std::int64_t bytes = 0;
        for (int i = 0; i < m_info.num_components; ++i) {
            const jpeg_component_info& component = m_info.comp_info[i];
            bytes += std::int64_t{component.width_in_blocks} * component.height_in_blocks *
                     static_cast<std::int64_t>(sizeof(JBLOCK));
        }
        if (bytes > MaxCoefficientBytes)
            throw EImageFormat("JPEG: too large for several scans");
    }

    void ChooseColors()
    {
        switch (m_info.jpeg_color_space) {
        case JCS_GRAYSCALE:
        case JCS_YCbCr:
        case JCS_RGB:
            m_info.out_color_space = JCS_EXT_BGRX;
            return;
        case JCS_CMYK:
        case JCS_YCCK:
            m_info.out_color_space = JCS_CMYK;
            m_ink.resize(std::size_t{4} * m_info.image_width);
            return;
        default:
            throw EImageFormat("JPEG: unknown colours");
        }
    }

    // Decodes some rows of blocks of a scan. After the last ones the rows can be read.
    void TakeIn()
    {
        for (int row = 0; row < BlockRowsPerPiece && !m_isTakenIn; ++row) {
            m_isTakenIn = jpeg_consume_input(&m_info) == JPEG_REACHED_EOI;
            m_scanLimit.progress_monitor(reinterpret_cast<j_common_ptr>(&m_info));
        }
        if (m_isTakenIn)
            jpeg_start_output(&m_info, m_info.input_scan_number);
    }

    // libjpeg 2.1 passes rows over correctly only from and to the borders of the groups in which it
    // scales the colours up.
    void Decode(int y, JSAMPLE* samples)
    {
        const auto wanted = static_cast<JDIMENSION>(y);
        const auto group = static_cast<JDIMENSION>(m_info.max_v_samp_factor);
        const auto next = (m_info.output_scanline + group - 1) / group * group;
        while (m_info.output_scanline < std::min(next, wanted))
            jpeg_read_scanlines(&m_info, &samples, 1);
        if (const JDIMENSION groups = (wanted - m_info.output_scanline) / group; groups > 0)
            jpeg_skip_scanlines(&m_info, groups * group);
        while (m_info.output_scanline <= wanted)
            jpeg_read_scanlines(&m_info, &samples, 1);
    }

    TFile m_file;
    TFileSource m_source{m_file.get()};
    TErrorManager m_error;
    TScanLimit m_scanLimit{};
    TDecompressor m_info;
    std::vector<JSAMPLE> m_ink; // a row of CMYK, empty for other colours
    bool m_isTakenIn = false;   // all scans of a picture that is decoded in pieces
    bool m_isBroken = false;
    bool m_isStrict = false;
};

// What libjpeg writes into.
struct TMemory {
    ~TMemory() { std::free(Data); }
    unsigned char* Data = nullptr;
    unsigned long Size = 0;
};

void Compress(jpeg_compress_struct& info, TMemory& memory, const TBitmap& bitmap, int quality)
{
    jpeg_create_compress(&info);
    jpeg_mem_dest(&info, &memory.Data, &memory.Size);
    info.image_width = static_cast<JDIMENSION>(bitmap.Width());
    info.image_height = static_cast<JDIMENSION>(bitmap.Height());
    info.input_components = 4;
    info.in_color_space = JCS_EXT_BGRX;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, quality, TRUE);
    jpeg_start_compress(&info, TRUE);
    for (int y = 0; y < bitmap.Height(); ++y) {
        // libjpeg reads the row only.
        auto* row = reinterpret_cast<JSAMPLE*>(const_cast<TPixel*>(bitmap.Row(y)));
        jpeg_write_scanlines(&info, &row, 1);
    }
    jpeg_finish_compress(&info);
}

} // namespace

std::unique_ptr<TImageReader> OpenJpeg(TFile file, TDecoding decoding)
{
    auto reader = std::make_unique<TJpegReader>(std::move(file));
    reader->Start(decoding);
    return reader;
}

TSize JpegSize(TFile file)
{
    return TJpegReader(std::move(file)).Size();
}

void SaveJpegFile(const TBitmap& bitmap, const std::string& fileName, int quality)
{
    TErrorManager error;
    TMemory memory;
    jpeg_compress_struct info{};
    info.err = &error;
    const bool isDone = error.Guarded([&] { Compress(info, memory, bitmap, quality); });
    const std::string reason = isDone ? std::string() : ErrorText(info);
    jpeg_destroy_compress(&info);
    if (!isDone)
        CheckMemory(error);
    if (!isDone)
        throw EFileError("cannot write " + fileName + ": " + reason);
    const std::string_view content(reinterpret_cast<const char*>(memory.Data), memory.Size);
    ReplaceWholeFile(fileName, content, TFlush::ToSystemCache);
}

} // namespace murala
