#pragma once

/// Which tolerance CMxGeom::SetTol makes current. Any other value acts as eTolValue.
enum eToleranceType : int {
    eTolEPS = 0,      ///< CMxGeom::m_EPS
    eTolGeneral = 1,  ///< CMxGeom::m_tol_g
    eTolX = 2,        ///< CMxGeom::m_tol_x
    eTolY = 3,        ///< CMxGeom::m_tol_y
    eTolAngle = 4,    ///< CMxGeom::m_tol_a
    eTolValue = 5,    ///< the value passed with it
};
