// What the kernel's library shows. Nothing that the kernel throws gets out, and nothing that it
// prints: standard output is the transcript's.
#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <Standard_Failure.hxx>

#include <exception>

#include "simhost/kernel/kernel.h"
#include "simhost/kernel/occ/write.h"

namespace simhost::kernel {

namespace {

class Library : public Kernel {
public:
    Library() { Message::DefaultMessenger()->ChangePrinters().Clear(); }

    std::string Step(const Document& document) override {
        return Guarded([&] { return StepBytes(document); });
    }
    std::string Iges(const Document& document) override {
        return Guarded([&] { return IgesBytes(document); });
    }

private:
    template <class Work>
    static auto Guarded(const Work& work) -> decltype(work()) {
        try {
            return work();
        } catch (const Failure&) {
            throw;
        } catch (const Standard_Failure& failure) {
            throw Failure(std::string("the kernel: ") + failure.GetMessageString());
        } catch (const std::exception& failure) {
            throw Failure(failure.what());
        }
    }
};

}  // namespace

}  // namespace simhost::kernel

extern "C" __attribute__((visibility("default"))) simhost::kernel::Kernel* SimhostKernel() {
    static simhost::kernel::Library library;
    return &library;
}
