#include "run/PictureExport.h"

#include "platform/Twips.h"
#include "run/MapSheet.h"

#include <QIODevice>
#include <exception>
#include <optional>

namespace tovrel {

namespace {

constexpr float fullBar = 100.0F;
constexpr float barDrawn = 60.0F; ///< when the map is drawn and remains to be encoded

/// Thrown out of a drawing that the user has stopped.
class Stopped : public std::exception {};

/// A pass within the export: its progress is a part of the bar, its words are not shown, and the
/// user's stop ends it.
class PartListener : public PassListener {
public:
    PartListener(PassListener& whole, float share, const bool& stop)
        : whole_(whole), share_(share), stop_(stop) {}

    void beginPass(std::string_view, std::string_view, float maximum) override {
        maximum_ = maximum;
    }
    void showStatus(std::string_view) override {}
    void showProgress(float value) override { whole_.showProgress(share_ * value / maximum_); }
    void endPass() override {}
    void yield() override {
        whole_.yield();
        if (stop_)
            throw Stopped();
    }

private:
    PassListener& whole_;
    float share_;
    const bool& stop_;
    float maximum_ = fullBar;
};

/// Keeps what an encoder writes, and lets events run as it writes. Once the user wants to stop,
/// what comes is dropped: to fail would end the encoder at once, but Qt's then leaves its memory
/// behind.
class StoppableBuffer : public QIODevice {
public:
    StoppableBuffer(const bool& stop, PassListener& listener) : stop_(stop), listener_(listener) {
        open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    }

    const std::string& bytes() const { return bytes_; }

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char* data, qint64 size) override {
        listener_.yield();
        if (stop_)
            std::string().swap(bytes_);
        else
            bytes_.append(data, static_cast<std::size_t>(size));
        return size;
    }

private:
    const bool& stop_;
    PassListener& listener_;
    std::string bytes_;
};

/// The map on show, drawn anew in the size of a wish.
PictureSurface drawnMap(const PictureOptions& options, MapShape shape, MapPictures& map,
                        PassListener& listener) {
    const int pixels =
        options.format == PictureFormat::Pdf ? mapPixelsOn(options.paper, shape) : options.pixels;
    const PictureSurface& shown = map.Picture2;
    PictureSurface picture(shown.Width(), shown.Height(),
                           pixels * static_cast<double>(twipsPerPixel) /
                               static_cast<double>(shown.Width()));
    map.drawAnew(picture, listener);
    return picture;
}

} // namespace

PictureEnd exportPicture(const PictureWish& wish, RunData& data, MapPictures& map,
                         const QDateTime& now, PassListener& listener) {
    const bool& stop = data.run.AbortRequested;
    data.run.AbortRequested = false;
    listener.beginPass("Exporting Picture", "Drawing the map", fullBar);
    StoppableBuffer file(stop, listener);
    bool encoded = false;
    try {
        PartListener drawing(listener, barDrawn, stop);
        const PictureSurface picture = drawnMap(wish.options, data.map()->shape(), map, drawing);
        listener.showProgress(barDrawn);
        listener.showStatus(std::string("Writing: ").append(splitPath(wish.path).name));
        drawing.yield();
        std::optional<MapCaption> caption;
        if (wish.options.caption)
            caption = captionOf(data, map.Picture2.layers, now);
        encoded = encodeSheet({wish.options.format, wish.options.paper}, picture.Image(), caption,
                              std::nullopt, file);
    } catch (const Stopped&) {
        encoded = false;
    }
    PictureEnd end{.stopped = stop, .written = {}};
    if (!end.stopped) {
        listener.showProgress(fullBar);
        end.written = encoded ? writeFile(wish.path, file.bytes())
                              : WriteEnd{"the picture could not be encoded"};
    }
    listener.endPass();
    data.run.AbortRequested = false;
    return end;
}

} // namespace tovrel
