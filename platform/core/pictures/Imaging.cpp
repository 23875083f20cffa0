#include "platform/Imaging.h"

#include "platform/Desktop.h"
#include "platform/core/Backend.h"

#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>
#include <thread>

namespace platform {

namespace {

std::unique_ptr<IWICFormatConverter> MakeConverter(std::optional<Picture> picture) {
    if (!picture) return nullptr;
    return std::make_unique<IWICFormatConverter>(std::make_shared<const Picture>(std::move(*picture)));
}

/// Files named to Prefetch are decoded by one thread, in that order. Whoever asks for one takes the finished picture,
/// waits for the one being decoded, or decodes it himself if its turn has not come; a picture that the thread could not
/// decode is tried again. So what a caller gets never depends on the thread.
class ImagingFactory final : public IWICImagingFactory {
public:
    explicit ImagingFactory(const Backend& decodingBackend) : backend(decodingBackend) {}
    ~ImagingFactory() override {
        {
            const std::lock_guard lock(mutex);
            waiting.clear();
        }
        if (thread.joinable()) thread.join();
    }

    std::unique_ptr<IWICFormatConverter> CreateConverterFromFile(const std::string& path) override {
        {
            std::unique_lock lock(mutex);
            std::erase(waiting, path);
            finished.wait(lock, [&] { return decoding != path; });
            const auto found = ready.find(path);
            if (found != ready.end()) {
                std::optional<Picture> picture = std::move(found->second);
                ready.erase(found);
                return MakeConverter(std::move(picture));
            }
        }
        return MakeConverter(backend.loadPicture(path));
    }

    std::unique_ptr<IWICFormatConverter> CreateConverterFromMemory(std::span<const unsigned char> bytes) override {
        return MakeConverter(backend.decodePicture(bytes));
    }

    void Prefetch(std::vector<std::string> paths) override {
        {
            const std::lock_guard lock(mutex);
            for (std::string& path : paths) waiting.push_back(std::move(path));
            if (isRunning || waiting.empty()) return;
            isRunning = true;
        }
        if (thread.joinable()) thread.join(); // an earlier one that found nothing more to do
        thread = std::thread([this] { DecodeWaiting(); });
    }

private:
    void DecodeWaiting() {
        std::unique_lock lock(mutex);
        while (!waiting.empty()) {
            decoding = std::move(waiting.front());
            waiting.pop_front();
            lock.unlock();
            std::optional<Picture> picture = backend.loadPicture(*decoding);
            lock.lock();
            if (picture) ready.insert_or_assign(std::move(*decoding), std::move(*picture));
            decoding.reset();
            finished.notify_all();
        }
        isRunning = false;
    }

    const Backend& backend;
    std::mutex mutex;
    std::condition_variable finished;
    std::deque<std::string> waiting;
    std::optional<std::string> decoding; // written under the lock, and only by the thread
    std::map<std::string, Picture> ready;
    bool isRunning = false;
    std::thread thread;
};

} // namespace

std::unique_ptr<IWICImagingFactory> CreateImagingFactory() {
    return std::make_unique<ImagingFactory>(Desktop::Current().GetBackend());
}

} // namespace platform
