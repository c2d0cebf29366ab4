# What a vendor's headers ask to be told; kits differ in it.
set(VX_HOST_DEFINES "PRO_USE_VAR_ARGS;PRO_MACHINE=36;PRO_OS=4" CACHE STRING
    "What the headers of the host vendor's kit ask to be defined")
