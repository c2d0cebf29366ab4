// What the kernel's library shows. Nothing that the kernel throws gets out, and nothing that it
// prints: standard output is the transcript's.
#include <IGESControl_Controller.hxx>
#include <Message.hxx>
#include <Message_Messenger.hxx>
#include <STEPControl_Controller.hxx>
#include <Standard_Failure.hxx>

#include <exception>
#include <new>

#include "simhost/kernel/kernel.h"
#include "simhost/kernel/occ/read.h"
#include "simhost/kernel/occ/write.h"

namespace simhost::kernel {

namespace {

class Library : public Kernel {
public:
    // The settings of the formats are there only once the formats are.
    Library() {
        Message::DefaultMessenger()->ChangePrinters().Clear();
        STEPControl_Controller::Init();
        IGESControl_Controller::Init();
    }

    std::string Step(const Document& document) override {
        return Guarded([&] { return StepBytes(document); });
    }
    std::string Iges(const Document& document) override {
        return Guarded([&] { return IgesBytes(document); });
    }
    Document ReadStep(const std::string& path) override {
        return Guarded([&] { return StepDocument(path); });
    }
    Document ReadIges(const std::string& path) override {
        return Guarded([&] { return IgesDocument(path); });
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
        } catch (const std::bad_alloc&) {
            throw Failure("there is not enough memory");
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
