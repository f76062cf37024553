// OdDbAttribute: a text that a block reference carries under a tag.
#pragma once

#include <memory>

#include "platform/drawing/DbAttributeDefinition.h"

struct NewAttribute;

class OdDbAttribute : public OdDbText {
  public:
    ODRX_DECLARE_MEMBERS(OdDbAttribute);
    // In no database until OdDbBlockReference::appendAttribute puts it there.
    static OdSmartPtr<OdDbAttribute> createObject();
    ~OdDbAttribute() override;

    OdString tag() const;
    bool isInvisible() const;
    bool isConstant() const;
    bool isMTextAttribute() const;  // has a text of several lines inside
    int verticalMode() const override;
    void setInvisible(bool invisible);
    OdString textString() const override;
    // Of an attribute with a text of several lines inside, both texts are set.
    void setTextString(const OdString& text) override;

    // The properties of an attribute that is in no database; one that is there raises OdError
    // (eNotApplicable). An attribute has no parts of its own that a last argument could reach.
    void setPropertiesFrom(const OdDbEntity* source, bool doSubents = true);
    void setTag(const OdString& tag);
    void setHeight(double height);
    void setRotation(double degrees);
    void setTextStyle(const OdString& name);
    void setColor(const OdCmColor& color, bool doSubents = true);
    void setLinetype(const OdString& name, bool doSubents = true);
    void setLinetypeScale(double scale, bool doSubents = true);
    void setLineWeight(int lineWeight, bool doSubents = true);
    void setNormal(const OdGeVector3d& normal);
    void setThickness(double thickness);
    void setTransparency(int transparency, bool doSubents = true);
    void setWidthFactor(double factor);
    void setHorizontalMode(int mode);
    void setVerticalMode(int mode);
    void setFieldLength(int length);
    void setMTextAttribute(const OdDbMText* text);
    // Takes the place, the default text and all that is left from the definition; the matrix leads
    // from the coordinates of the block to those of the reference.
    void setAttributeFromBlock(const OdDbAttributeDefinition* definition,
                               const OdGeMatrix3d& blockTransform);

  protected:
    OdDbAttribute();
    friend class OdDbDatabaseImpl;

  private:
    friend class OdDbBlockReference;

    NewAttribute& fresh();                  // raises eNotApplicable
    std::unique_ptr<NewAttribute> pending;  // while it is in no database
};
using OdDbAttributePtr = OdSmartPtr<OdDbAttribute>;
