#include "watermark/booklet_service.h"

#include <utility>

namespace kalmo {
namespace {

BookletService& Service() {
    static auto& service = *new BookletService;
    return service;
}

}  // namespace

void InstallBookletService(BookletService service) { Service() = std::move(service); }

const BookletService& InstalledBookletService() { return Service(); }

}  // namespace kalmo
