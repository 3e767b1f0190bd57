import struct

import pytest

import vistral


def test_every_mode_reaches_the_emulator_with_only_the_fields_given(session):
    conn, c, emulator, sync = session
    tank, truck = "1:3001:12", "1:3002:5"
    where, offset, look = (10, 20, 30), (1, 2, 3), (0.5, -0.25, 0.125)
    c.set_absolute_mode(location=where, orientation=look)
    c.set_tether_mode(attach=tank, offset=offset, orientation=look)
    c.set_compass_mode(tank, radius=120, body_heading=0.5, pitch=-0.3)
    c.set_turret_mode(attach=tank, offset=offset)
    c.set_orbit_mode(attach=tank, radius=120, heading=0.5, pitch=-0.3, azimuth_rate=0.1)
    c.set_track_mode(track=truck, location=where)
    c.set_tether_track_mode(attach=tank, track=truck, offset=offset)
    c.set_mimic_track_mode(attach=tank, track=truck, offset=offset)
    c.set_group_mode(list=["a", "b", "c"], radial=120, heading=0.5, pitch=-0.3)
    c.set_pivot_mode(pivot=where, radius=120, body_heading=0.5, pitch=-0.3)
    c.set_mode(vistral.DtVcOrbit)  # back to orbit, keeping its parameters
    view = sync()["view"]
    f32 = lambda x: struct.unpack(">f", struct.pack(">f", x))[0]
    assert view["modeName"] == "VcOrbit"
    assert view["parameters"] == {"attachId": tank, "markingText": "", "radius": 120.0, "heading": 0.5,
                                  "pitch": f32(-0.3), "azimuthRate": f32(0.1)}
    assert view["modes"]["VcAbsolute"] == {"location.x": 10.0, "location.y": 20.0, "location.z": 30.0,
                                           "orientation.psi": 0.5, "orientation.theta": -0.25,
                                           "orientation.phi": 0.125}
    assert view["modes"]["VcTether"]["topoUpOffset.z"] == 3.0
    assert view["modes"]["VcOffsetMimic"]["offset.y"] == 2.0
    assert view["modes"]["VcMimicTrack"]["offset.x"] == 1.0
    assert view["modes"]["VcTetherTrack"]["trackId"] == truck
    assert view["modes"]["VcGroup"]["radialOffset"] == 120.0
    assert view["group"] == ["a", "b", "c"]
    assert view["modes"]["VcPivot"]["pivotPoint.z"] == 30.0

    # None leaves a field as the viewer had it; modeless commands and moves.
    c.set_orbit_mode(radius=80)
    absolute = vistral.AbsoluteVCPdu()  # a PDU of one's own: only y of the location and the roll count
    absolute.world_location = (-1, -2, -3)
    absolute.orientation = (9, 9, 9)
    absolute.ignore_flags = 0xFFFFFFFF & ~0x2 & ~0x20
    c.send(absolute)
    assert sync()["view"]["parameters"] == {"location.x": 10.0, "location.y": -2.0, "location.z": 30.0,
                                            "orientation.psi": 0.5, "orientation.theta": -0.25,
                                            "orientation.phi": 9.0}
    c.set_primary_secondary("p1", "s1")
    c.remove_from_group(["b"])
    c.add_to_group(["d"])
    c.set_secondary("s2")
    c.set(position=(5, 6, 7))
    c.move_eyepoint(vistral.RemoteController.FORWARDS)
    c.reset()
    c.set(position=(5, 6, 7))
    view = sync()["view"]
    assert view["modes"]["VcOrbit"]["radius"] == 80.0
    assert view["modes"]["VcOrbit"]["azimuthRate"] == f32(0.1)
    assert (view["modeName"], view["primary"], view["secondary"]) == ("VcAbsolute", "p1", "s2")
    assert view["group"] == ["a", "c", "d"]
    assert view["eye"]["position.x"] == 5.0 and view["eye"]["resets"] == 1

    # Options: one per call.
    c.set_fog_enabled(True)
    c.set_time_of_day(13.5)
    c.set_database_to_load("terrain.db")
    options = sync()["options"]
    assert options, "the emulator reports the options it was given"
    assert any(v == "terrain.db" for v in options.values()) or "terrain.db" in str(options)


def test_pdu_bytes_match_the_golden_image_and_decode_to_their_class():
    pdu = vistral.OrbitVCPdu()
    pdu.set_from_string("Tank 7,100,0.5,1,2,3,4,5,Blue one")
    image = bytes(pdu)
    assert len(image) == pdu.length == 312
    assert image[2] == 202 and struct.unpack(">H", image[146:148])[0] == 5
    field = lambda text: text.encode() + bytes(64 - len(text))
    assert image[156:] == struct.pack(">7f", 100, 0.5, 1, 2, 3, 4, 5) + field("Tank 7") + field("Blue one")
    assert str(pdu) == "Tank 7,100.000000,0.500000,1.000000,2.000000,3.000000,4.000000,5.000000,Blue one"
    assert "Radius:                  100.000000\n" in pdu.dump()
    assert (pdu.radius, pdu.attach_id, pdu.marking_text) == (100.0, "Tank 7", "Blue one")

    back = vistral.from_bytes(image)
    assert type(back) is vistral.OrbitVCPdu and back == pdu and back is not pdu
    pdu.radius = 7
    assert struct.unpack(">f", bytes(pdu)[156:160])[0] == 7.0 and back != pdu

    # Every command builds its class; draw PDUs come back as the class their header names.
    assert type(vistral.new_pdu(vistral.DtVcPivot)) is vistral.PivotVCPdu
    assert type(vistral.new_pdu(vistral.DtVdc3DText)) is vistral.VdcTextPdu
    line = vistral.VdcLinePdu()
    line.num_segments = 2
    line.set_thickness(1, 9)
    assert type(vistral.from_bytes(bytes(line))) is vistral.VdcLinePdu
    assert vistral.from_bytes(bytes(line)).thickness(1) == 9


def test_hostile_bytes_raise_or_decode_without_crashing():
    good = bytes(vistral.OrbitVCPdu())
    for data in (b"", b"\x00", good[:40], good[:2] + b"\x00" + good[3:], b"\xff" * 2000):
        try:
            pdu = vistral.from_bytes(data)
        except ValueError:
            continue
        str(pdu), pdu.dump(), bytes(pdu)
    short = vistral.from_bytes(good[:200])  # a short image keeps what its header says
    assert short.length == 312 and short.marking_text == ""


def test_wrong_types_and_ranges_raise_clear_errors():
    c = vistral.RemoteController(sender=lambda b: None, target="v")
    with pytest.raises(TypeError, match="location must be a sequence of 3 numbers"):
        c.set_absolute_mode(location=(1, 2))
    with pytest.raises(TypeError, match="radius must be a number or None"):
        c.set_orbit_mode(radius="far")
    with pytest.raises(ValueError, match="radius does not fit a 32-bit float"):
        c.set_orbit_mode(radius=1e300)
    with pytest.raises(TypeError, match="list must be a sequence of entity names"):
        c.set_group("abc")
    line = vistral.VdcLinePdu()
    with pytest.raises(ValueError, match=r"thickness must be in 0\.\.255, got 256"):
        line.set_thickness(0, 256)
    with pytest.raises(ValueError, match="out of range|must be in"):
        line.set_thickness(-1, 1)
    with pytest.raises(TypeError):
        line.num_segments = 1.5
    with pytest.raises(ValueError, match="not a control PDU"):
        vistral.from_bytes(b"\x07\x01\x01\x01" + bytes(200))
    with pytest.raises(TypeError, match="connection must be a vistral.Connection"):
        vistral.Emulator("not a connection")
    with pytest.raises(vistral.Error, match="closed"):
        c.close()
        c.reset()
    # One base class for every error the module raises itself.
    assert issubclass(vistral.ArgumentTypeError, (vistral.Error, TypeError))
    with pytest.raises(vistral.ArgumentValueError):
        vistral.VdcColor(-1, 0, 0, 0)


def test_a_raising_callback_reaches_the_caller_of_process_incoming(session):
    conn, c, emulator, sync = session
    heard = []

    def boom(pdu):
        heard.append(pdu)
        raise KeyError("from the callback")

    c.add_callback(boom, "vistral-1")
    c.add_callback(lambda pdu: heard.append(str(pdu)))  # every viewer; runs after the raising one too
    c.set_orbit_mode(attach="1:3001:12", radius=75)
    c.request_current_view_mode("vistral-1")
    sync()
    emulator.process_incoming()
    with pytest.raises(KeyError, match="from the callback"):
        conn.process_incoming()
    assert len(heard) == 2 and type(heard[0]) is vistral.OrbitVCPdu
    report = heard[0]
    assert (report.viewer_command, report.sender_id, report.attach_id, report.radius) == (
        vistral.DtVcOrbitStatus, "vistral-1", "1:3001:12", 75.0)
    assert conn.process_incoming() == 0  # the error was raised once, and the process goes on
    assert c.remove_callback(boom, "vistral-1") and not c.remove_callback(boom, "vistral-1")

    # Closing what the library is using, from inside its callback, is refused.
    c.add_callback(lambda pdu: conn.close())
    c.request_current_view_mode("vistral-1")
    sync()
    emulator.process_incoming()
    with pytest.raises(vistral.Error, match="cannot close from inside a callback"):
        conn.process_incoming()
    assert not conn.closed


def test_custom_sender_gets_each_commands_bytes_and_its_errors_are_raised():
    frames = []
    c = vistral.RemoteController(sender=frames.append, target="vistral-9")
    c.controller_id = "me"
    c.set_orbit_mode(radius=5)
    pdu = vistral.from_bytes(frames[0])
    assert type(pdu) is vistral.OrbitVCPdu and (pdu.viewer_id, pdu.sender_id, pdu.radius) == ("vistral-9", "me", 5)
    # Every bit but the radius's is set.
    assert pdu.ignore_flags & 0xFFFFFFFF == 0xFFFFFFFF & ~0x200

    def refuse(data):
        raise ConnectionError("link down")

    with vistral.RemoteController(sender=refuse) as broken:
        with pytest.raises(ConnectionError, match="link down"):
            broken.reset()
