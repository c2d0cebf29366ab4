// The command VxMdlCount: how often each model occurs in the assembly, as its parameter 数量.
#pragma once

void VxMdlCount();
