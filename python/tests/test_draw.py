import vistral
from vistral import Vdc3DAttachPoint as At, VdcColor, VdcVector2D as V2

RED, BLUE = VdcColor(255, 0, 0, 255), VdcColor(0, 0, 255, 128)
SEG = vistral.VdcLineSegment


def scene():
    """One object of every kind, ids 1 to 14."""
    layout = vistral.VdcAttributeGroupTemplateObject(12, "Status")
    fuel = layout.create_attribute_template(1, "Fuel", 0.0, 100.0)
    layout.create_attribute_template(2, "Flag", vistral.VdcAttributeTemplateObject.DtVdcAttTypeBitmap)
    panel = vistral.VdcAttributeGroupObject(13, layout, At("1:3001:12"), (0, 0, 5), RED, False)
    return [
        vistral.VdcLine2DObject(1, V2(-0.8, -0.6), V2(0.6, 0.4), 2, BLUE, SEG.DtVdcSegmentStraight,
                                SEG.DtVdcSegmentArrowEnd, 2, 0xF0F0F0F0, False),
        vistral.VdcLine3DObject(2, At((0, 0, 0)), At("1:3001:12"), 1, (0, 0, 1), RED, SEG.DtVdcSegmentLightning,
                                SEG.DtVdcSegmentNoArrow, 1, 0xFFFFFFFF, True, False, False),
        vistral.VdcTriangle2DObject(3, V2(0, 0), V2(0.1, 0), V2(0, 0.1), V2(0, 0), V2(1, 1), 0.0, RED, True,
                                    0xFFFFFFFF, False),
        vistral.VdcTriangle3DObject(4, (0, 0, 0), (1, 0, 0), (0, 1, 0), BLUE, False),
        vistral.VdcArea3DObject(5, [(100, 0, 0), (101, 0, 0), (101, 1, 0)], RED, "tex", "mines.png", 2, False),
        vistral.VdcEllipseObject(6, V2(0.5, 0.5), V2(0.2, 0.1), 0.0, RED, True, 0xFFFFFFFF, True),
        vistral.VdcRectangleObject(7, V2(-0.5, 0.5), V2(0.2, 0.1), 0.25, BLUE, False, 0xFFFFFFFF, False),
        vistral.VdcEllipsoidObject(8, At((10, 10, 0)), (4, 2, 1), (0, 0, 0), (0, 0, 0), RED, False),
        vistral.VdcCuboidObject(9, At("1:3002:5"), 4, 2, 1, (0, 0, 0), (0.5, 0, 0), BLUE, False),
        vistral.VdcCylinderObject(10, At((20, 0, 0)), 3, V2(1, 1), (0, 0, 0), (0, 0, 0), RED, False),
        vistral.VdcText2DObject(11, "Phase line ALPHA", V2(0.1, 0.9), RED, False),
        layout, panel,
        vistral.VdcText3DObject(14, "Blue leader", At("1:3001:12"), (0, 0, 2), BLUE, False),
        vistral.VdcDrawLayerObject(15, "Tactical"),
    ], panel, fuel


def test_a_scene_of_every_kind_is_drawn_changed_and_removed(session):
    conn, _, emulator, sync = session
    objects, panel, fuel = scene()
    with vistral.RemoteDrawer(conn) as drawer:
        for obj in objects:
            drawer.add(obj)
        assert len(drawer) == 15 and drawer[6] is objects[5] and 99 not in drawer
        drawer.add_to_layer(11, 15)
        drawer.hide(6)
        panel.set_value_bar_attribute_value(fuel.id, 62.5)
        drawer.update(panel)
        objects[10].text = "Phase line BRAVO"
        drawer.update(11)
        state = sync()
        drawn = state["objects"]
        assert {int(k) for k in drawn} >= set(range(1, 16)) - {12}
        assert {drawn[str(i)]["kind"] for i in (1, 5, 11, 14, 15)} >= {"line", "area", "text", "layer"}
        assert drawn["11"]["text"] == "Phase line BRAVO" and drawn["5"]["color"] == [255, 0, 0, 255]
        assert "62.5" in emulator.state_json

        # Removal hands the same object back, and it is Python's again.
        line = drawer.remove(1)
        assert line is objects[0] and 1 not in drawer and drawer.remove(1) is None
        line.set_color(VdcColor(1, 2, 3, 4), 0)
        assert line.color(0) == VdcColor(1, 2, 3, 4) and line.color(0) != RED
        svg, png = emulator.svg(), emulator.png()
        assert svg.startswith(b"<?xml") and b"<svg" in svg and png[:8] == b"\x89PNG\r\n\x1a\n"
        sync()
        assert emulator.svg() != svg  # object 1 is gone from the picture
    # Closing the drawer removed the rest on the viewer too; the objects are still usable.
    assert len(sync()["objects"]) < len(drawn)
    assert objects[5].pdu.object_id == 6 and bytes(objects[5].pdu)[2] == 202


def test_drawer_through_a_sender_sends_each_objects_pdu_from_the_library():
    frames = []
    drawer = vistral.RemoteDrawer(sender=frames.append, sender_id="lab")
    label = vistral.VdcText2DObject(drawer.next_id(), "hello", V2(0.5, 0.5), RED, False)
    drawer.add(label)
    sent = vistral.from_bytes(frames[-1])
    assert type(sent) is vistral.VdcTextPdu and sent.text == "hello" and sent.sender_id == "lab"
    assert bytes(sent) == bytes(label.pdu)
    drawer.hide(label.id)
    assert type(vistral.from_bytes(frames[-1])) is vistral.VdcCommandPdu
    drawer.close()
    assert type(vistral.from_bytes(frames[-1])) is vistral.VdcCommandPdu  # the remove on close
