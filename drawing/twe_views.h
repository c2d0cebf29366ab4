// TweViews: a drawing that shows a part or an assembly from all sides, made in one go.
#pragma once

void TweViews();
