#include "platform/Imaging.h"

#include "platform/Desktop.h"
#include "platform/core/Backend.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>
#include <utility>

namespace platform {

namespace {

std::unique_ptr<IWICFormatConverter> MakeConverter(std::optional<Picture> picture) {
    if (!picture) return nullptr;
    return std::make_unique<IWICFormatConverter>(std::make_shared<const Picture>(std::move(*picture)));
}

/// Files named to Prefetch are decoded by one worker, in that order. Whoever asks for one takes the finished picture,
/// waits for the one being decoded, or decodes it himself if its turn has not come; a picture that the worker could not
/// decode is tried again. So what a caller gets never depends on the worker.
class ImagingFactory final : public IWICImagingFactory {
public:
    explicit ImagingFactory(Desktop& usedDesktop) : desktop(usedDesktop), backend(usedDesktop.GetBackend()) {}
    ~ImagingFactory() override {
        const std::lock_guard lock(mutex);
        waiting.clear();
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
        }
        if (workerPtr) {
            workerPtr->Wake();
        } else {
            workerPtr = desktop.StartWorker([this](Worker& worker) {
                while (worker.Rest(DecodeNext() ? std::optional(std::chrono::nanoseconds(0)) : std::nullopt)) {}
            });
        }
    }

private:
    /// False when nothing was waiting.
    bool DecodeNext() {
        std::unique_lock lock(mutex);
        if (waiting.empty()) return false;
        decoding = std::move(waiting.front());
        waiting.pop_front();
        lock.unlock();
        std::optional<Picture> picture = backend.loadPicture(*decoding);
        lock.lock();
        if (picture) ready.insert_or_assign(std::move(*decoding), std::move(*picture));
        decoding.reset();
        finished.notify_all();
        return true;
    }

    Desktop& desktop;
    const Backend& backend;
    std::mutex mutex;
    std::condition_variable finished;
    std::deque<std::string> waiting;
    std::optional<std::string> decoding; // written under the lock, and only by the worker
    std::map<std::string, Picture> ready;
    std::unique_ptr<Worker> workerPtr; // last: it uses everything above
};

} // namespace

std::unique_ptr<IWICImagingFactory> CreateImagingFactory() {
    return std::make_unique<ImagingFactory>(Desktop::Current());
}

} // namespace platform
