// VxVipAbout: the page for supporters on the product's home page.
#include "commands/commands.h"
#include "frame/services.h"

void VxVipAbout() {
    OpenHomePage("/?Vip/");
}
