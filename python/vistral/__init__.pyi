"""Steer, draw on and check remote Vistral viewers from Python."""

import typing

class VistralControlPdu():
    """The control PDU (kind 202): base class of every view and draw PDU."""
    def __bytes__(self) -> bytes: ...
    def __eq__(self, arg0: typing.Any) -> typing.Any: ...
    def __init__(self) -> None: """The control PDU (PDU kind 202): base class of every view-control and draw-control PDU, and the operations that turn a received image or a command number into an object of the right class."""
    def __len__(self) -> int: ...
    def copy(self) -> VistralControlPdu: """An independent copy."""
    def dump(self) -> str: """The labelled dump of every field, as text."""
    @staticmethod
    def from_bytes(data: bytes) -> typing.Any: """The PDU of the right class for a received image."""
    @property
    def ignore_flags(self) -> int: """The 32-bit flags widened with sign extension: bit 31 set gives the upper 32 bits all ones."""
    @ignore_flags.setter
    def ignore_flags(self, value: int) -> None: ...
    @property
    def length(self) -> int: """The header's length field, in bytes."""
    @property
    def sender_id(self) -> str: """The viewer addressed and the sending application. Both getters fill one shared cache: copy the first result before asking for the second."""
    @sender_id.setter
    def sender_id(self, value: str) -> None: ...
    def set_from_string(self, text: str) -> None: """Reads the text form; what cannot be parsed is ignored."""
    @property
    def status_command(self) -> bool: """The command is a status (answer) form: kStatusOffset to kStatusLast."""
    @status_command.setter
    def status_command(self, value: bool) -> None: ...
    @property
    def viewer_command(self) -> ViewerCommand: """What the PDU commands; status forms (command + 500) are what viewers answer with."""
    @viewer_command.setter
    def viewer_command(self, value: ViewerCommand) -> None: ...
    @property
    def viewer_id(self) -> str: """The viewer addressed and the sending application. Both getters fill one shared cache: copy the first result before asking for the second."""
    @viewer_id.setter
    def viewer_id(self, value: str) -> None: ...

class AbsoluteVCPdu(VistralControlPdu):
    """Absolute mode: put the eye at a world location with an orientation (viewer command 0, 196 bytes)."""
    def __init__(self) -> None: """Absolute mode: put the eye at a world location with an orientation (viewer command 0, 196 bytes)."""
    @property
    def orientation(self) -> tuple[float, float, float]: """Where the eye is (ignore bits DtVcIgnore::Position) and how it is turned (DtVcIgnore::Orientation); the orientation travels as three 32-bit floats."""
    @orientation.setter
    def orientation(self, value: tuple[float, float, float]) -> None: ...
    @property
    def world_location(self) -> tuple[float, float, float]: """Where the eye is (ignore bits DtVcIgnore::Position) and how it is turned (DtVcIgnore::Orientation); the orientation travels as three 32-bit floats."""
    @world_location.setter
    def world_location(self, value: tuple[float, float, float]) -> None: ...

class Error(Exception):
    """Every error the module raises: the library's own, and bad arguments."""

class ArgumentTypeError(Error, TypeError):
    """An argument of the wrong type."""

class ArgumentValueError(Error, ValueError):
    """An argument out of its field's range."""

class CompassVCPdu(VistralControlPdu):
    """Compass mode: hold a fixed bearing around an attached entity (viewer command 2, 308 bytes)."""
    def __init__(self) -> None: """Compass mode: hold a fixed bearing around an attached entity (viewer command 2, 308 bytes)."""
    @property
    def attach_id(self) -> str: """The entity the eye is attached to (ignore bit DtVcIgnore::FirstEntity)."""
    @attach_id.setter
    def attach_id(self, value: str) -> None: ...
    @property
    def body_heading(self) -> float: """The eye's place on a sphere around the attached entity: its radius (ignore bit DtVcIgnore::Radius), the body heading (BodyHeading) and pitch (Pitch) on it, then heading and pitch offsets and a roll. Each travels as a 32-bit float."""
    @body_heading.setter
    def body_heading(self, value: float) -> None: ...
    @property
    def heading_offset(self) -> float: """The eye's place on a sphere around the attached entity: its radius (ignore bit DtVcIgnore::Radius), the body heading (BodyHeading) and pitch (Pitch) on it, then heading and pitch offsets and a roll. Each travels as a 32-bit float."""
    @heading_offset.setter
    def heading_offset(self, value: float) -> None: ...
    @property
    def marking_text(self) -> str: """Empty unless the PDU is 308 bytes long: older senders do not carry it."""
    @marking_text.setter
    def marking_text(self, value: str) -> None: ...
    @property
    def pitch(self) -> float: """The eye's place on a sphere around the attached entity: its radius (ignore bit DtVcIgnore::Radius), the body heading (BodyHeading) and pitch (Pitch) on it, then heading and pitch offsets and a roll. Each travels as a 32-bit float."""
    @pitch.setter
    def pitch(self, value: float) -> None: ...
    @property
    def pitch_offset(self) -> float: """The eye's place on a sphere around the attached entity: its radius (ignore bit DtVcIgnore::Radius), the body heading (BodyHeading) and pitch (Pitch) on it, then heading and pitch offsets and a roll. Each travels as a 32-bit float."""
    @pitch_offset.setter
    def pitch_offset(self, value: float) -> None: ...
    @property
    def radius(self) -> float: """The eye's place on a sphere around the attached entity: its radius (ignore bit DtVcIgnore::Radius), the body heading (BodyHeading) and pitch (Pitch) on it, then heading and pitch offsets and a roll. Each travels as a 32-bit float."""
    @radius.setter
    def radius(self, value: float) -> None: ...
    @property
    def roll(self) -> float: """The eye's place on a sphere around the attached entity: its radius (ignore bit DtVcIgnore::Radius), the body heading (BodyHeading) and pitch (Pitch) on it, then heading and pitch offsets and a roll. Each travels as a 32-bit float."""
    @roll.setter
    def roll(self, value: float) -> None: ...

class Connection():
    """One federate joined to one federation execution. The execution name's form picks the network (a URL for an RTI); backend names one outright."""
    def __enter__(self) -> typing.Any: ...
    def __exit__(self, *args) -> bool: ...
    def __init__(self, execution_name: str, federate_name: str = ..., *, fed_file: str = ..., backend: str = ...) -> None: ...
    @property
    def backend_name(self) -> str: ...
    def close(self) -> None: """Closes what uses the connection, then resigns."""
    @property
    def closed(self) -> bool: ...
    @property
    def created_execution(self) -> bool: """Whether this connection created the execution (rather than joining it)."""
    @property
    def execution_name(self) -> str: ...
    @property
    def federate_name(self) -> str: ...
    @property
    def lost(self) -> bool: """Whether process_incoming() found the federation lost (an RTI server gone); it raises then."""
    @property
    def lost_reason(self) -> str: """The RTI's reason for the loss; empty while joined."""
    @property
    def pending_incoming(self) -> int: ...
    def process_incoming(self) -> int: """Delivers what has arrived; raises what a callback raised. Returns the interactions handled."""
    @staticmethod
    def rti_backend_built_in() -> bool: ...
    def send(self, pdu: VistralControlPdu) -> None: """Sends the PDU as it is, inside a ViewControl interaction."""

class Emulator():
    """A headless stand-in for a viewer: takes the PDUs addressed to it and keeps its state."""
    def __enter__(self) -> typing.Any: ...
    def __exit__(self, *args) -> bool: ...
    def __init__(self, connection: typing.Any = ..., viewer_id: str = ..., *, execution_name: str = ..., fed_file: str = ...) -> None: ...
    def apply(self, pdu: VistralControlPdu) -> None: """Takes one PDU as if it had arrived."""
    def apply_bytes(self, data: bytes) -> None: """Takes a received image through the library's receive path."""
    def close(self) -> None: """Leaves the federation (resigning a connection of its own)."""
    def png(self) -> bytes: """The picture as PNG bytes."""
    def process_incoming(self) -> int: ...
    @property
    def state(self) -> typing.Any: """The whole state as dicts and lists: the same data as state_json."""
    @property
    def state_json(self) -> str: """The whole state as JSON text."""
    def state_report(self) -> VistralControlPdu: """The status PDU of the current mode, as the emulator would answer a request."""
    def svg(self) -> bytes: """The picture as SVG bytes."""
    @property
    def viewer_id(self) -> str: ...

class GroupVCPdu(VistralControlPdu):
    """Group mode: view a group of entities from a radial offset, removing entities from and adding them to the viewed group (viewer command 9; 188 bytes with empty lists, 64 more per listed entity)."""
    def __init__(self) -> None: """Group mode: view a group of entities from a radial offset, removing entities from and adding them to the viewed group (viewer command 9; 188 bytes with empty lists, 64 more per listed entity)."""
    @property
    def entities_to_add_in_image(self) -> int: """How many entries of each list the image holds: a received count may claim more than its bytes carry. Entries from the first up to these counts can be read."""
    @property
    def entities_to_remove_in_image(self) -> int: """How many entries of each list the image holds: a received count may claim more than its bytes carry. Entries from the first up to these counts can be read."""
    def entity_to_add(self, index: int) -> str: """Both getters fill one cache: copy the first result before asking for the second. An index outside the list gives an empty text, and is ignored by the setters."""
    def entity_to_remove(self, index: int) -> str: """Both getters fill one cache: copy the first result before asking for the second. An index outside the list gives an empty text, and is ignored by the setters."""
    @property
    def group_cmd(self) -> int: """0 "Group", anything else "WideGroup"."""
    @group_cmd.setter
    def group_cmd(self, value: int) -> None: ...
    @property
    def heading(self) -> float: """Where the eye looks at the group from: its distance (ignore bit DtVcIgnore::GroupRadialOffset), heading and pitch, and heading and pitch offsets (GroupHeadingOffset, GroupPitchOffset). Each travels as a 32-bit float."""
    @heading.setter
    def heading(self, value: float) -> None: ...
    @property
    def heading_offset(self) -> float: """Where the eye looks at the group from: its distance (ignore bit DtVcIgnore::GroupRadialOffset), heading and pitch, and heading and pitch offsets (GroupHeadingOffset, GroupPitchOffset). Each travels as a 32-bit float."""
    @heading_offset.setter
    def heading_offset(self, value: float) -> None: ...
    @property
    def num_entities_to_add(self) -> int: """Set both counts before writing entries: raising the remove count inserts empty slots at the front of the lists and shifts every stored entry; lowering it drops the last remove entries. -1 counts as 0. A count below -1, or one that would make the PDU longer than 65535 bytes, is refused and changes nothing."""
    @num_entities_to_add.setter
    def num_entities_to_add(self, value: int) -> None: ...
    @property
    def num_entities_to_remove(self) -> int: """Set both counts before writing entries: raising the remove count inserts empty slots at the front of the lists and shifts every stored entry; lowering it drops the last remove entries. -1 counts as 0. A count below -1, or one that would make the PDU longer than 65535 bytes, is refused and changes nothing."""
    @num_entities_to_remove.setter
    def num_entities_to_remove(self, value: int) -> None: ...
    @property
    def pitch(self) -> float: """Where the eye looks at the group from: its distance (ignore bit DtVcIgnore::GroupRadialOffset), heading and pitch, and heading and pitch offsets (GroupHeadingOffset, GroupPitchOffset). Each travels as a 32-bit float."""
    @pitch.setter
    def pitch(self, value: float) -> None: ...
    @property
    def pitch_offset(self) -> float: """Where the eye looks at the group from: its distance (ignore bit DtVcIgnore::GroupRadialOffset), heading and pitch, and heading and pitch offsets (GroupHeadingOffset, GroupPitchOffset). Each travels as a 32-bit float."""
    @pitch_offset.setter
    def pitch_offset(self, value: float) -> None: ...
    @property
    def radial_offset(self) -> float: """Where the eye looks at the group from: its distance (ignore bit DtVcIgnore::GroupRadialOffset), heading and pitch, and heading and pitch offsets (GroupHeadingOffset, GroupPitchOffset). Each travels as a 32-bit float."""
    @radial_offset.setter
    def radial_offset(self, value: float) -> None: ...
    def set_entity_to_add(self, index: int, id: str) -> None: """Both getters fill one cache: copy the first result before asking for the second. An index outside the list gives an empty text, and is ignored by the setters."""
    def set_entity_to_remove(self, index: int, id: str) -> None: """Both getters fill one cache: copy the first result before asking for the second. An index outside the list gives an empty text, and is ignored by the setters."""

class InitStatus():
    """What a connection's construction did: made the federation execution, or joined one that existed."""
    DtInitCreatedExecution: typing.ClassVar[InitStatus]
    DtInitJoinedExecution: typing.ClassVar[InitStatus]
    def __eq__(self, other: typing.Any) -> bool: ...
    def __init__(self, value: int) -> None: ...
    def __ne__(self, other: typing.Any) -> bool: ...
    @property
    def name(self) -> str: ...
    @property
    def value(self) -> int: ...
    def __int__(self) -> int: ...
    def __index__(self) -> int: ...
    @property
    def name(self) -> str: ...
    @property
    def value(self) -> int: ...

class MimicTrackVCPdu(VistralControlPdu):
    """Mimic-track mode: ride with one entity, taking on its body orientation, and look at another (viewer command 8, 424 bytes)."""
    def __init__(self) -> None: """Mimic-track mode: ride with one entity, taking on its body orientation, and look at another (viewer command 8, 424 bytes)."""
    @property
    def attach_id(self) -> str: """Both ids fill one cache: copy the first before asking for the second."""
    @attach_id.setter
    def attach_id(self, value: str) -> None: ...
    @property
    def attach_marking_text(self) -> str: """Empty unless the PDU is 424 bytes long: older senders do not carry them. An attach marking text of 64 characters has no terminator and reads on into the track marking text."""
    @attach_marking_text.setter
    def attach_marking_text(self, value: str) -> None: ...
    @property
    def offset(self) -> tuple[float, float, float]: """Travels in single precision."""
    @offset.setter
    def offset(self, value: tuple[float, float, float]) -> None: ...
    @property
    def track_id(self) -> str: """Both ids fill one cache: copy the first before asking for the second."""
    @track_id.setter
    def track_id(self, value: str) -> None: ...
    @property
    def track_marking_text(self) -> str: """Empty unless the PDU is 424 bytes long: older senders do not carry them. An attach marking text of 64 characters has no terminator and reads on into the track marking text."""
    @track_marking_text.setter
    def track_marking_text(self, value: str) -> None: ...

class MimicVCPdu(VistralControlPdu):
    """Mimic and offset mimic modes: ride with an entity at an offset and take on its body orientation plus a given one (viewer commands 3 and 4, 308 bytes)."""
    def __init__(self) -> None: """Mimic and offset mimic modes: ride with an entity at an offset and take on its body orientation plus a given one (viewer commands 3 and 4, 308 bytes)."""
    @property
    def attach_id(self) -> str: """The entity the eye is attached to (ignore bit DtVcIgnore::FirstEntity)."""
    @attach_id.setter
    def attach_id(self, value: str) -> None: ...
    @property
    def body_orientation(self) -> tuple[float, float, float]: """The eye's offset from the attached entity (ignore bits DtVcIgnore::AttachOffset) and its orientation. Travels in single precision."""
    @body_orientation.setter
    def body_orientation(self, value: tuple[float, float, float]) -> None: ...
    @property
    def marking_text(self) -> str: """Empty unless the PDU is 308 bytes long: older senders do not carry it."""
    @marking_text.setter
    def marking_text(self, value: str) -> None: ...
    @property
    def offset(self) -> tuple[float, float, float]: """The eye's offset from the attached entity (ignore bits DtVcIgnore::AttachOffset) and its orientation. Travels in single precision."""
    @offset.setter
    def offset(self, value: tuple[float, float, float]) -> None: ...

class ModelessVCPdu(VistralControlPdu):
    """Modeless command: set a primary and a secondary entity and edit an entity list without changing the viewing mode (viewer command 10; 292 bytes with empty lists, 64 more per listed entity). It has no text form."""
    def __init__(self) -> None: """Modeless command: set a primary and a secondary entity and edit an entity list without changing the viewing mode (viewer command 10; 292 bytes with empty lists, 64 more per listed entity). It has no text form."""
    @property
    def entities_to_add_in_image(self) -> int: """How many entries of each list the image holds: a received count may claim more than its bytes carry. Entries from the first up to these counts can be read."""
    @property
    def entities_to_remove_in_image(self) -> int: """How many entries of each list the image holds: a received count may claim more than its bytes carry. Entries from the first up to these counts can be read."""
    def entity_to_add(self, index: int) -> str: """As in the group PDU: set both counts before writing entries. -1 counts as 0; a count below -1, or one that would make the PDU longer than 65535 bytes, is refused and changes nothing."""
    def entity_to_remove(self, index: int) -> str: """As in the group PDU: set both counts before writing entries. -1 counts as 0; a count below -1, or one that would make the PDU longer than 65535 bytes, is refused and changes nothing."""
    @property
    def num_entities_to_add(self) -> int: """As in the group PDU: set both counts before writing entries. -1 counts as 0; a count below -1, or one that would make the PDU longer than 65535 bytes, is refused and changes nothing."""
    @num_entities_to_add.setter
    def num_entities_to_add(self, value: int) -> None: ...
    @property
    def num_entities_to_remove(self) -> int: """As in the group PDU: set both counts before writing entries. -1 counts as 0; a count below -1, or one that would make the PDU longer than 65535 bytes, is refused and changes nothing."""
    @num_entities_to_remove.setter
    def num_entities_to_remove(self, value: int) -> None: ...
    @property
    def primary(self) -> str: """primary(), secondary(), entityToRemove() and entityToAdd() all fill one cache: copy a result before asking for another."""
    @primary.setter
    def primary(self, value: str) -> None: ...
    @property
    def secondary(self) -> str: """primary(), secondary(), entityToRemove() and entityToAdd() all fill one cache: copy a result before asking for another."""
    @secondary.setter
    def secondary(self, value: str) -> None: ...
    def set_entity_to_add(self, index: int, id: str) -> None: """As in the group PDU: set both counts before writing entries. -1 counts as 0; a count below -1, or one that would make the PDU longer than 65535 bytes, is refused and changes nothing."""
    def set_entity_to_remove(self, index: int, id: str) -> None: """As in the group PDU: set both counts before writing entries. -1 counts as 0; a count below -1, or one that would make the PDU longer than 65535 bytes, is refused and changes nothing."""

class MoveVCPdu(VistralControlPdu):
    """Move: step or turn the eye, or reset it (viewer command 13, 208 bytes)."""
    BACKWARDS: typing.ClassVar[Direction]
    DOWN: typing.ClassVar[Direction]
    class Direction():
        """A direction to step or turn the eye in; one byte on the wire."""
        BACKWARDS: typing.ClassVar[Direction]
        DOWN: typing.ClassVar[Direction]
        FORWARDS: typing.ClassVar[Direction]
        LEFT: typing.ClassVar[Direction]
        RIGHT: typing.ClassVar[Direction]
        UP: typing.ClassVar[Direction]
        def __eq__(self, other: typing.Any) -> bool: ...
        def __init__(self, value: int) -> None: ...
        def __ne__(self, other: typing.Any) -> bool: ...
        @property
        def name(self) -> str: ...
        @property
        def value(self) -> int: ...
        def __int__(self) -> int: ...
        def __index__(self) -> int: ...
        @property
        def name(self) -> str: ...
        @property
        def value(self) -> int: ...
    FORWARDS: typing.ClassVar[Direction]
    LEFT: typing.ClassVar[Direction]
    RIGHT: typing.ClassVar[Direction]
    UP: typing.ClassVar[Direction]
    def __init__(self) -> None: """Move: step or turn the eye, or reset it (viewer command 13, 208 bytes)."""
    @property
    def move(self) -> MoveVCPdu.Direction: """One step of the eye: the direction it turns in and the direction it moves in (ignore bit DtVcIgnore::Step)."""
    @move.setter
    def move(self, value: MoveVCPdu.Direction) -> None: ...
    @property
    def orientation(self) -> tuple[float, float, float]: """Where to put the eye (ignore bits DtVcIgnore::Position) and how to turn it (DtVcIgnore::Orientation), as 64-bit floats."""
    @orientation.setter
    def orientation(self, value: tuple[float, float, float]) -> None: ...
    @property
    def position(self) -> tuple[float, float, float]: """Where to put the eye (ignore bits DtVcIgnore::Position) and how to turn it (DtVcIgnore::Orientation), as 64-bit floats."""
    @position.setter
    def position(self, value: tuple[float, float, float]) -> None: ...
    @property
    def reset(self) -> bool: """The reset flag, which asks the viewer to reset its eye; DtVistralRemoteController::reset() sends it."""
    @reset.setter
    def reset(self, value: bool) -> None: ...
    @property
    def turn(self) -> MoveVCPdu.Direction: """One step of the eye: the direction it turns in and the direction it moves in (ignore bit DtVcIgnore::Step)."""
    @turn.setter
    def turn(self, value: MoveVCPdu.Direction) -> None: ...

class OffsetMimicVCPdu(MimicVCPdu):
    """Offset mimic: the mimic layout under its own command."""
    def __init__(self) -> None: """Offset mimic: the mimic layout under its own command."""

class OptionsPdu(VistralControlPdu):
    """Viewer options (viewer command 11, 1539 bytes): presence bits and a field per option. A viewer changes only the options a PDU marks present."""
    def __init__(self) -> None: """An options PDU with no option present, 1539 bytes."""
    @property
    def aggregate_highest_only(self) -> bool: """Each value setter writes its field and marks the option present, whatever the value. Getters read the field whether the option is present or not."""
    @aggregate_highest_only.setter
    def aggregate_highest_only(self, value: bool) -> None: ...
    @property
    def aggregate_level(self) -> int: """Each value setter writes its field and marks the option present, whatever the value. Getters read the field whether the option is present or not."""
    @aggregate_level.setter
    def aggregate_level(self, value: int) -> None: ...
    @property
    def aggregates_altitude_controlled(self) -> bool: """Each value setter writes its field and marks the option present, whatever the value. Getters read the field whether the option is present or not."""
    @aggregates_altitude_controlled.setter
    def aggregates_altitude_controlled(self, value: bool) -> None: ...
    @property
    def blocked_distance(self) -> float: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @blocked_distance.setter
    def blocked_distance(self, value: float) -> None: ...
    @property
    def broadcasting(self) -> bool: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @broadcasting.setter
    def broadcasting(self, value: bool) -> None: ...
    @property
    def clamp_range(self) -> float: """Each value setter writes its field and marks the option present, whatever the value. Getters read the field whether the option is present or not."""
    @clamp_range.setter
    def clamp_range(self, value: float) -> None: ...
    def clear_option_present(self, option: VistralOption) -> None: """Presence bits. Options from 64 on exist only in a PDU longer than 1274 bytes: in an older one, setting them does nothing and they read as absent."""
    @property
    def clouds(self) -> bool: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @clouds.setter
    def clouds(self, value: bool) -> None: ...
    @property
    def clustering_labels(self) -> bool: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @clustering_labels.setter
    def clustering_labels(self, value: bool) -> None: ...
    @property
    def constrain_with_floor(self) -> bool: """Each value setter writes its field and marks the option present, whatever the value. Getters read the field whether the option is present or not."""
    @constrain_with_floor.setter
    def constrain_with_floor(self, value: bool) -> None: ...
    @property
    def constrained_to_all(self) -> bool: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @property
    def current_model_set(self) -> str: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @current_model_set.setter
    def current_model_set(self, value: str) -> None: ...
    @property
    def current_texture_set(self) -> str: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @current_texture_set.setter
    def current_texture_set(self, value: str) -> None: ...
    @property
    def database_to_load(self) -> str: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @database_to_load.setter
    def database_to_load(self, value: str) -> None: ...
    @property
    def date(self) -> str: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @date.setter
    def date(self, value: str) -> None: ...
    @property
    def decrement_stepsize(self) -> bool: """Actions carry no value: true marks the option present, false clears it; the getter reads the bit."""
    @decrement_stepsize.setter
    def decrement_stepsize(self, value: bool) -> None: ...
    @property
    def decrement_turnrate(self) -> bool: """Actions carry no value: true marks the option present, false clears it; the getter reads the bit."""
    @decrement_turnrate.setter
    def decrement_turnrate(self, value: bool) -> None: ...
    @property
    def entity_labels(self) -> bool: """Each value setter writes its field and marks the option present, whatever the value. Getters read the field whether the option is present or not."""
    @entity_labels.setter
    def entity_labels(self, value: bool) -> None: ...
    @property
    def exit(self) -> bool: """Actions carry no value: true marks the option present, false clears it; the getter reads the bit."""
    @exit.setter
    def exit(self, value: bool) -> None: ...
    @property
    def far_clip(self) -> float: """Each value setter writes its field and marks the option present, whatever the value. Getters read the field whether the option is present or not."""
    @far_clip.setter
    def far_clip(self, value: float) -> None: ...
    @property
    def far_fog(self) -> float: """Each value setter writes its field and marks the option present, whatever the value. Getters read the field whether the option is present or not."""
    @far_fog.setter
    def far_fog(self, value: float) -> None: ...
    @property
    def feature_command(self) -> VistralControlFeatureCommand: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @feature_command.setter
    def feature_command(self, value: VistralControlFeatureCommand) -> None: ...
    @property
    def feature_filename(self) -> str: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @feature_filename.setter
    def feature_filename(self, value: str) -> None: ...
    @property
    def floor(self) -> float: """Each value setter writes its field and marks the option present, whatever the value. Getters read the field whether the option is present or not."""
    @floor.setter
    def floor(self, value: float) -> None: ...
    @property
    def fog(self) -> bool: """Each value setter writes its field and marks the option present, whatever the value. Getters read the field whether the option is present or not."""
    @fog.setter
    def fog(self, value: bool) -> None: ...
    @property
    def follow_ground(self) -> bool: """Each value setter writes its field and marks the option present, whatever the value. Getters read the field whether the option is present or not."""
    @follow_ground.setter
    def follow_ground(self, value: bool) -> None: ...
    @property
    def fov(self) -> float: """Each value setter writes its field and marks the option present, whatever the value. Getters read the field whether the option is present or not."""
    @fov.setter
    def fov(self, value: float) -> None: ...
    @property
    def ground_clamping(self) -> bool: """Each value setter writes its field and marks the option present, whatever the value. Getters read the field whether the option is present or not."""
    @ground_clamping.setter
    def ground_clamping(self, value: bool) -> None: ...
    @property
    def hat_enabled(self) -> bool: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @property
    def increment_stepsize(self) -> bool: """Actions carry no value: true marks the option present, false clears it; the getter reads the bit."""
    @increment_stepsize.setter
    def increment_stepsize(self, value: bool) -> None: ...
    @property
    def increment_turnrate(self) -> bool: """Actions carry no value: true marks the option present, false clears it; the getter reads the bit."""
    @increment_turnrate.setter
    def increment_turnrate(self, value: bool) -> None: ...
    @property
    def locator_range(self) -> float: """Each value setter writes its field and marks the option present, whatever the value. Getters read the field whether the option is present or not."""
    @locator_range.setter
    def locator_range(self, value: float) -> None: ...
    @property
    def mirror_message_every_frame(self) -> bool: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @mirror_message_every_frame.setter
    def mirror_message_every_frame(self, value: bool) -> None: ...
    @property
    def mirroring(self) -> bool: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @mirroring.setter
    def mirroring(self, value: bool) -> None: ...
    @property
    def near_clip(self) -> float: """Each value setter writes its field and marks the option present, whatever the value. Getters read the field whether the option is present or not."""
    @near_clip.setter
    def near_clip(self, value: float) -> None: ...
    @property
    def near_fog(self) -> float: """Each value setter writes its field and marks the option present, whatever the value. Getters read the field whether the option is present or not."""
    @near_fog.setter
    def near_fog(self, value: float) -> None: ...
    @property
    def nested_aggregates(self) -> bool: """Each value setter writes its field and marks the option present, whatever the value. Getters read the field whether the option is present or not."""
    @nested_aggregates.setter
    def nested_aggregates(self, value: bool) -> None: ...
    @property
    def nested_entities(self) -> bool: """Each value setter writes its field and marks the option present, whatever the value. Getters read the field whether the option is present or not."""
    @nested_entities.setter
    def nested_entities(self, value: bool) -> None: ...
    @property
    def object_scale(self) -> float: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @object_scale.setter
    def object_scale(self, value: float) -> None: ...
    def option_present(self, option: VistralOption) -> bool: """Presence bits. Options from 64 on exist only in a PDU longer than 1274 bytes: in an older one, setting them does nothing and they read as absent."""
    @property
    def overlay(self) -> OverlayOption: """Each value setter writes its field and marks the option present, whatever the value. Getters read the field whether the option is present or not."""
    @overlay.setter
    def overlay(self, value: OverlayOption) -> None: ...
    @property
    def recording(self) -> bool: """Each value setter writes its field and marks the option present, whatever the value. Getters read the field whether the option is present or not."""
    @recording.setter
    def recording(self, value: bool) -> None: ...
    def set_constrain_to_all(self, on: bool) -> None: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    def set_ha_tenabled(self, on: bool) -> None: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    def set_option_present(self, option: VistralOption) -> None: """Presence bits. Options from 64 on exist only in a PDU longer than 1274 bytes: in an older one, setting them does nothing and they read as absent."""
    def set_xr_enabled(self, on: bool) -> None: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @property
    def show_aggregates(self) -> bool: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @show_aggregates.setter
    def show_aggregates(self, value: bool) -> None: ...
    @property
    def show_emitters(self) -> bool: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @show_emitters.setter
    def show_emitters(self, value: bool) -> None: ...
    @property
    def show_next_model_set(self) -> bool: """Actions carry no value: true marks the option present, false clears it; the getter reads the bit."""
    @show_next_model_set.setter
    def show_next_model_set(self, value: bool) -> None: ...
    @property
    def show_next_texture_set(self) -> bool: """Actions carry no value: true marks the option present, false clears it; the getter reads the bit."""
    @show_next_texture_set.setter
    def show_next_texture_set(self, value: bool) -> None: ...
    @property
    def show_prev_model_set(self) -> bool: """Actions carry no value: true marks the option present, false clears it; the getter reads the bit."""
    @show_prev_model_set.setter
    def show_prev_model_set(self, value: bool) -> None: ...
    @property
    def show_prev_texture_set(self) -> bool: """Actions carry no value: true marks the option present, false clears it; the getter reads the bit."""
    @show_prev_texture_set.setter
    def show_prev_texture_set(self, value: bool) -> None: ...
    @property
    def sky_dome(self) -> bool: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @sky_dome.setter
    def sky_dome(self, value: bool) -> None: ...
    @property
    def smoothing(self) -> SmoothingOption: """Each value setter writes its field and marks the option present, whatever the value. Getters read the field whether the option is present or not."""
    @smoothing.setter
    def smoothing(self, value: SmoothingOption) -> None: ...
    @property
    def smoothing_period(self) -> float: """Each value setter writes its field and marks the option present, whatever the value. Getters read the field whether the option is present or not."""
    @smoothing_period.setter
    def smoothing_period(self, value: float) -> None: ...
    @property
    def sound(self) -> bool: """Each value setter writes its field and marks the option present, whatever the value. Getters read the field whether the option is present or not."""
    @sound.setter
    def sound(self, value: bool) -> None: ...
    @property
    def stepsize(self) -> float: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @stepsize.setter
    def stepsize(self, value: float) -> None: ...
    @property
    def tactical_graphics(self) -> bool: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @tactical_graphics.setter
    def tactical_graphics(self, value: bool) -> None: ...
    @property
    def tactical_graphics_labels(self) -> bool: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @tactical_graphics_labels.setter
    def tactical_graphics_labels(self, value: bool) -> None: ...
    @property
    def terrain_scale(self) -> float: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @terrain_scale.setter
    def terrain_scale(self, value: float) -> None: ...
    @property
    def texture(self) -> bool: """Each value setter writes its field and marks the option present, whatever the value. Getters read the field whether the option is present or not."""
    @texture.setter
    def texture(self, value: bool) -> None: ...
    @property
    def time_of_day(self) -> float: """Each value setter writes its field and marks the option present, whatever the value. Getters read the field whether the option is present or not."""
    @time_of_day.setter
    def time_of_day(self, value: float) -> None: ...
    @property
    def trailing_effects(self) -> bool: """Each value setter writes its field and marks the option present, whatever the value. Getters read the field whether the option is present or not."""
    @trailing_effects.setter
    def trailing_effects(self, value: bool) -> None: ...
    @property
    def trajectory_history(self) -> bool: """Each value setter writes its field and marks the option present, whatever the value. Getters read the field whether the option is present or not."""
    @trajectory_history.setter
    def trajectory_history(self, value: bool) -> None: ...
    @property
    def turnrate(self) -> float: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @turnrate.setter
    def turnrate(self, value: float) -> None: ...
    @property
    def use_near_clip_for_blocked_distance(self) -> bool: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @use_near_clip_for_blocked_distance.setter
    def use_near_clip_for_blocked_distance(self, value: bool) -> None: ...
    @property
    def video_capture_command(self) -> VistralControlVideoCaptureCommand: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @video_capture_command.setter
    def video_capture_command(self, value: VistralControlVideoCaptureCommand) -> None: ...
    @property
    def video_capture_directory(self) -> str: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @video_capture_directory.setter
    def video_capture_directory(self, value: str) -> None: ...
    @property
    def video_capture_filename(self) -> str: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @video_capture_filename.setter
    def video_capture_filename(self, value: str) -> None: ...
    @property
    def video_capture_filename_base(self) -> str: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @video_capture_filename_base.setter
    def video_capture_filename_base(self, value: str) -> None: ...
    @property
    def video_capture_frames_per_second(self) -> int: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @video_capture_frames_per_second.setter
    def video_capture_frames_per_second(self, value: int) -> None: ...
    @property
    def video_capture_record_insets(self) -> bool: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""
    @video_capture_record_insets.setter
    def video_capture_record_insets(self, value: bool) -> None: ...
    @property
    def xr_enabled(self) -> bool: """More options, with setters and getters as above. Texts are cut to their field (256, 64 or 32 bytes), with no terminator when they fill it."""

class OrbitVCPdu(VistralControlPdu):
    """Orbit mode: circle an attached entity at an azimuth rate (viewer command 5, 312 bytes)."""
    def __init__(self) -> None: """Orbit mode: circle an attached entity at an azimuth rate (viewer command 5, 312 bytes)."""
    @property
    def attach_id(self) -> str: """The entity the eye circles (ignore bit DtVcIgnore::FirstEntity)."""
    @attach_id.setter
    def attach_id(self, value: str) -> None: ...
    @property
    def azimuth_rate(self) -> float: """The sphere around the attached entity: its radius (ignore bit DtVcIgnore::Radius), how fast the eye circles it (AzimuthRate), the heading (Heading) and pitch (Pitch) it starts from, then heading and pitch offsets and a roll. Each travels as a 32-bit float."""
    @azimuth_rate.setter
    def azimuth_rate(self, value: float) -> None: ...
    @property
    def heading(self) -> float: """The sphere around the attached entity: its radius (ignore bit DtVcIgnore::Radius), how fast the eye circles it (AzimuthRate), the heading (Heading) and pitch (Pitch) it starts from, then heading and pitch offsets and a roll. Each travels as a 32-bit float."""
    @heading.setter
    def heading(self, value: float) -> None: ...
    @property
    def heading_offset(self) -> float: """The sphere around the attached entity: its radius (ignore bit DtVcIgnore::Radius), how fast the eye circles it (AzimuthRate), the heading (Heading) and pitch (Pitch) it starts from, then heading and pitch offsets and a roll. Each travels as a 32-bit float."""
    @heading_offset.setter
    def heading_offset(self, value: float) -> None: ...
    @property
    def marking_text(self) -> str: """Empty unless the PDU is 312 bytes long: older senders do not carry it."""
    @marking_text.setter
    def marking_text(self, value: str) -> None: ...
    @property
    def pitch(self) -> float: """The sphere around the attached entity: its radius (ignore bit DtVcIgnore::Radius), how fast the eye circles it (AzimuthRate), the heading (Heading) and pitch (Pitch) it starts from, then heading and pitch offsets and a roll. Each travels as a 32-bit float."""
    @pitch.setter
    def pitch(self, value: float) -> None: ...
    @property
    def pitch_offset(self) -> float: """The sphere around the attached entity: its radius (ignore bit DtVcIgnore::Radius), how fast the eye circles it (AzimuthRate), the heading (Heading) and pitch (Pitch) it starts from, then heading and pitch offsets and a roll. Each travels as a 32-bit float."""
    @pitch_offset.setter
    def pitch_offset(self, value: float) -> None: ...
    @property
    def radius(self) -> float: """The sphere around the attached entity: its radius (ignore bit DtVcIgnore::Radius), how fast the eye circles it (AzimuthRate), the heading (Heading) and pitch (Pitch) it starts from, then heading and pitch offsets and a roll. Each travels as a 32-bit float."""
    @radius.setter
    def radius(self, value: float) -> None: ...
    @property
    def roll(self) -> float: """The sphere around the attached entity: its radius (ignore bit DtVcIgnore::Radius), how fast the eye circles it (AzimuthRate), the heading (Heading) and pitch (Pitch) it starts from, then heading and pitch offsets and a roll. Each travels as a 32-bit float."""
    @roll.setter
    def roll(self, value: float) -> None: ...

class OverlayOption():
    """How much on-screen overlay the viewer draws."""
    DtOverlayFull: typing.ClassVar[OverlayOption]
    DtOverlayMinimal: typing.ClassVar[OverlayOption]
    DtOverlayNone: typing.ClassVar[OverlayOption]
    def __eq__(self, other: typing.Any) -> bool: ...
    def __init__(self, value: int) -> None: ...
    def __ne__(self, other: typing.Any) -> bool: ...
    @property
    def name(self) -> str: ...
    @property
    def value(self) -> int: ...
    def __int__(self) -> int: ...
    def __index__(self) -> int: ...
    @property
    def name(self) -> str: ...
    @property
    def value(self) -> int: ...

class PivotVCPdu(VistralControlPdu):
    """Pivot mode: turn the eye around a fixed world point (viewer command 12, 204 bytes)."""
    def __init__(self) -> None: """Pivot mode: turn the eye around a fixed world point (viewer command 12, 204 bytes)."""
    @property
    def body_heading(self) -> float: """The eye's place on a sphere around the pivot point: its radius (ignore bit DtVcIgnore::Radius), the body heading (BodyHeading) and pitch (Pitch) on it, heading and pitch offsets and a roll, as 32-bit floats; the pivot point (Position) in 64-bit floats. Virtual in this class alone, in this order."""
    @body_heading.setter
    def body_heading(self, value: float) -> None: ...
    @property
    def heading_offset(self) -> float: """The eye's place on a sphere around the pivot point: its radius (ignore bit DtVcIgnore::Radius), the body heading (BodyHeading) and pitch (Pitch) on it, heading and pitch offsets and a roll, as 32-bit floats; the pivot point (Position) in 64-bit floats. Virtual in this class alone, in this order."""
    @heading_offset.setter
    def heading_offset(self, value: float) -> None: ...
    @property
    def pitch(self) -> float: """The eye's place on a sphere around the pivot point: its radius (ignore bit DtVcIgnore::Radius), the body heading (BodyHeading) and pitch (Pitch) on it, heading and pitch offsets and a roll, as 32-bit floats; the pivot point (Position) in 64-bit floats. Virtual in this class alone, in this order."""
    @pitch.setter
    def pitch(self, value: float) -> None: ...
    @property
    def pitch_offset(self) -> float: """The eye's place on a sphere around the pivot point: its radius (ignore bit DtVcIgnore::Radius), the body heading (BodyHeading) and pitch (Pitch) on it, heading and pitch offsets and a roll, as 32-bit floats; the pivot point (Position) in 64-bit floats. Virtual in this class alone, in this order."""
    @pitch_offset.setter
    def pitch_offset(self, value: float) -> None: ...
    @property
    def pivot_point(self) -> tuple[float, float, float]: """The eye's place on a sphere around the pivot point: its radius (ignore bit DtVcIgnore::Radius), the body heading (BodyHeading) and pitch (Pitch) on it, heading and pitch offsets and a roll, as 32-bit floats; the pivot point (Position) in 64-bit floats. Virtual in this class alone, in this order."""
    @pivot_point.setter
    def pivot_point(self, value: tuple[float, float, float]) -> None: ...
    @property
    def radius(self) -> float: """The eye's place on a sphere around the pivot point: its radius (ignore bit DtVcIgnore::Radius), the body heading (BodyHeading) and pitch (Pitch) on it, heading and pitch offsets and a roll, as 32-bit floats; the pivot point (Position) in 64-bit floats. Virtual in this class alone, in this order."""
    @radius.setter
    def radius(self, value: float) -> None: ...
    @property
    def roll(self) -> float: """The eye's place on a sphere around the pivot point: its radius (ignore bit DtVcIgnore::Radius), the body heading (BodyHeading) and pitch (Pitch) on it, heading and pitch offsets and a roll, as 32-bit floats; the pivot point (Position) in 64-bit floats. Virtual in this class alone, in this order."""
    @roll.setter
    def roll(self, value: float) -> None: ...

class RemoteController():
    """Steers one target viewer: one operation per command; arguments left None are marked ignore."""
    BACKWARDS: typing.ClassVar[Direction]
    DOWN: typing.ClassVar[Direction]
    class Direction():
        """Same values as the move PDU's directions, passed on unchanged."""
        BACKWARDS: typing.ClassVar[Direction]
        DOWN: typing.ClassVar[Direction]
        FORWARDS: typing.ClassVar[Direction]
        LEFT: typing.ClassVar[Direction]
        RIGHT: typing.ClassVar[Direction]
        UP: typing.ClassVar[Direction]
        def __eq__(self, other: typing.Any) -> bool: ...
        def __init__(self, value: int) -> None: ...
        def __ne__(self, other: typing.Any) -> bool: ...
        @property
        def name(self) -> str: ...
        @property
        def value(self) -> int: ...
        def __int__(self) -> int: ...
        def __index__(self) -> int: ...
        @property
        def name(self) -> str: ...
        @property
        def value(self) -> int: ...
    FORWARDS: typing.ClassVar[Direction]
    LEFT: typing.ClassVar[Direction]
    RIGHT: typing.ClassVar[Direction]
    UP: typing.ClassVar[Direction]
    def __enter__(self) -> typing.Any: ...
    def __exit__(self, *args) -> bool: ...
    def __init__(self, connection: typing.Any = ..., target: str = ..., *, sender: typing.Any = ..., execution_name: str = ..., federate_name: str = ..., fed_file: str = ..., backend: str = ...) -> None: ...
    def add_callback(self, callback: typing.Any, viewer: str = ...) -> None: """Calls callback(pdu) for each PDU heard from the viewer ("0:0:0": from any)."""
    def add_to_group(self, list: list[str]) -> None: """Modeless commands on the viewed group: replace it with the list, add the list to it, or remove the list from it."""
    def clear_features(self) -> None: """Viewer options: each sends one options PDU with one option set."""
    def close(self) -> None: """Removes its callbacks and lets go of the connection (resigning one of its own)."""
    @property
    def controller_id(self) -> str: """The sender id stamped into every command; the viewer's reports name it."""
    @controller_id.setter
    def controller_id(self, value: str) -> None: ...
    def decrease_stepsize(self) -> None: """Options commands: the size of a step and the rate of a turn, set outright or one notch up or down."""
    def decrease_turnrate(self) -> None: """Options commands: the size of a step and the rate of a turn, set outright or one notch up or down."""
    def exit(self) -> None: """Viewer options: each sends one options PDU with one option set."""
    def increase_stepsize(self) -> None: """Options commands: the size of a step and the rate of a turn, set outright or one notch up or down."""
    def increase_turnrate(self) -> None: """Options commands: the size of a step and the rate of a turn, set outright or one notch up or down."""
    def load_features(self, file: str) -> None: """Viewer options: each sends one options PDU with one option set."""
    def move_eyepoint(self, direction: RemoteController.Direction) -> None: """A move command of one step, or one turn, in the direction."""
    def pause_video_recording(self) -> None: """Viewer options: each sends one options PDU with one option set."""
    def process_incoming(self) -> int: """Processes the controller's connection; raises what a callback raised."""
    def remove_callback(self, callback: typing.Any, viewer: str = ...) -> bool: ...
    def remove_from_group(self, list: list[str]) -> None: """Modeless commands on the viewed group: replace it with the list, add the list to it, or remove the list from it."""
    def request_current_view_mode(self, viewer: str) -> None: """Asks the target viewer for its mode; the argument is not used (the request goes to the target viewer)."""
    def reset(self) -> None: """A move command that resets the eye, every other field ignored."""
    def send(self, pdu: VistralControlPdu) -> None: """Sends the PDU to the target viewer as this controller."""
    def set(self, position: typing.Optional[tuple[float, float, float]] = ..., orientation: typing.Optional[tuple[float, float, float]] = ...) -> None: """A move PDU with what is given; nothing at all when neither is given."""
    def set_absolute_mode(self, location: typing.Optional[tuple[float, float, float]] = ..., orientation: typing.Optional[tuple[float, float, float]] = ...) -> None: """In the mode operations a null pointer leaves its field unset and ignored."""
    def set_aggregate_highest_only(self, only: bool) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_aggregate_level(self, level: int) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_blocked_distance(self, distance: float) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_broadcasting(self, on: bool) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_clouds(self, on: bool) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_clustering_labels(self, on: bool) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_compass_mode(self, attach: typing.Optional[str] = ..., radius: typing.Optional[float] = ..., body_heading: typing.Optional[float] = ..., pitch: typing.Optional[float] = ...) -> None: """In the mode operations a null pointer leaves its field unset and ignored."""
    def set_constrain_view_to_all(self, on: bool) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_constrain_with_floor(self, on: bool) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_current_model_set(self, set: str) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_current_texture_set(self, set: str) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_database_to_load(self, database: str) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_date(self, date: str) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_entity_labels_enabled(self, enabled: bool) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_far_clipping_plane(self, distance: float) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_floor(self, floor: float) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_fog_enabled(self, enabled: bool) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_ground_clamp_range(self, range: float) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_ground_clamping_enabled(self, enabled: bool) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_group(self, list: list[str]) -> None: """Modeless commands on the viewed group: replace it with the list, add the list to it, or remove the list from it."""
    def set_group_mode(self, list: typing.Optional[list[str]] = ..., radial: typing.Optional[float] = ..., heading: typing.Optional[float] = ..., pitch: typing.Optional[float] = ...) -> None: """In the mode operations a null pointer leaves its field unset and ignored."""
    def set_hat_labels(self, on: bool) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_ignore_commands_sent_from_us(self, ignore: bool) -> None: """Own PDUs heard back are dropped unless this is cleared (true by default)."""
    def set_mimic_mode(self, attach: typing.Optional[str] = ..., offset: typing.Optional[tuple[float, float, float]] = ...) -> None: """In the mode operations a null pointer leaves its field unset and ignored."""
    def set_mimic_track_mode(self, attach: typing.Optional[str] = ..., track: typing.Optional[str] = ..., offset: typing.Optional[tuple[float, float, float]] = ...) -> None: """In the mode operations a null pointer leaves its field unset and ignored."""
    def set_mirror_message_every_frame(self, on: bool) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_mirroring(self, on: bool) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_mode(self, mode: ViewerCommand, position: typing.Optional[tuple[float, float, float]] = ..., orientation: typing.Optional[tuple[float, float, float]] = ...) -> None: """Switches the viewer's mode keeping its parameters, then set(position, orientation)."""
    def set_near_clipping_plane(self, distance: float) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_next_model_set(self) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_next_texture_set(self) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_object_scale(self, scale: float) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_orbit_mode(self, attach: typing.Optional[str] = ..., radius: typing.Optional[float] = ..., heading: typing.Optional[float] = ..., pitch: typing.Optional[float] = ..., azimuth_rate: typing.Optional[float] = ...) -> None: """In the mode operations a null pointer leaves its field unset and ignored."""
    def set_overlay_enabled(self, enabled: bool) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_pivot_mode(self, pivot: typing.Optional[tuple[float, float, float]] = ..., radius: typing.Optional[float] = ..., body_heading: typing.Optional[float] = ..., pitch: typing.Optional[float] = ...) -> None: """In the mode operations a null pointer leaves its field unset and ignored."""
    def set_prev_model_set(self) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_prev_texture_set(self) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_primary(self, primary: str) -> None: """Modeless commands: the entity the viewer treats as primary, as secondary, or both at once."""
    def set_primary_secondary(self, primary: str, secondary: str) -> None: """Modeless commands: the entity the viewer treats as primary, as secondary, or both at once."""
    def set_secondary(self, secondary: str) -> None: """Modeless commands: the entity the viewer treats as primary, as secondary, or both at once."""
    def set_show_aggregates(self, on: bool) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_show_emitters(self, on: bool) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_sky_dome(self, on: bool) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_smoothing(self, smoothing: SmoothingOption) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_smoothing_period(self, period: float) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_sound_enabled(self, enabled: bool) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_stepsize(self, size: float) -> None: """Options commands: the size of a step and the rate of a turn, set outright or one notch up or down."""
    def set_tactical_graphics_labels(self, on: bool) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_terrain_scale(self, scale: float) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_tether_mode(self, attach: typing.Optional[str] = ..., offset: typing.Optional[tuple[float, float, float]] = ..., orientation: typing.Optional[tuple[float, float, float]] = ...) -> None: """In the mode operations a null pointer leaves its field unset and ignored."""
    def set_tether_track_mode(self, attach: typing.Optional[str] = ..., track: typing.Optional[str] = ..., offset: typing.Optional[tuple[float, float, float]] = ...) -> None: """In the mode operations a null pointer leaves its field unset and ignored."""
    def set_time_of_day(self, time: float) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_track_mode(self, track: typing.Optional[str] = ..., location: typing.Optional[tuple[float, float, float]] = ...) -> None: """In the mode operations a null pointer leaves its field unset and ignored."""
    def set_trailing_effects_enabled(self, enabled: bool) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_trajectory_histories_enabled(self, enabled: bool) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_turnrate(self, rate: float) -> None: """Options commands: the size of a step and the rate of a turn, set outright or one notch up or down."""
    def set_turret_mode(self, attach: typing.Optional[str] = ..., offset: typing.Optional[tuple[float, float, float]] = ...) -> None: """In the mode operations a null pointer leaves its field unset and ignored."""
    def set_use_near_clip_for_blocked_distance(self, on: bool) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_vertical_field_of_view(self, fov: float) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_video_capture_directory(self, directory: str) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_video_capture_filename_base(self, base: str) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_video_capture_frames_per_second(self, fps: int) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_video_capture_record_insets(self, on: bool) -> None: """Viewer options: each sends one options PDU with one option set."""
    def set_wide_group_mode(self, list: typing.Optional[list[str]] = ..., radial: typing.Optional[float] = ..., heading: typing.Optional[float] = ..., pitch: typing.Optional[float] = ...) -> None: """In the mode operations a null pointer leaves its field unset and ignored."""
    def set_xr(self, on: bool) -> None: """Viewer options: each sends one options PDU with one option set."""
    @typing.overload
    def start_video_recording(self) -> None: """start_video_recording(*args, **kwargs) Viewer options: each sends one options PDU with one option set. Viewer options: each sends one options PDU with one option set."""
    @typing.overload
    def start_video_recording(self, file: str) -> None: """start_video_recording(*args, **kwargs) Viewer options: each sends one options PDU with one option set. Viewer options: each sends one options PDU with one option set."""
    def stop_video_recording(self) -> None: """Viewer options: each sends one options PDU with one option set."""
    @property
    def target_vistral_id(self) -> str: """The viewer every command goes to."""
    @target_vistral_id.setter
    def target_vistral_id(self, value: str) -> None: ...
    def turn_eyepoint(self, direction: RemoteController.Direction) -> None: """A move command of one step, or one turn, in the direction."""
    def unpause_video_recording(self) -> None: """Viewer options: each sends one options PDU with one option set."""

class RemoteDrawer():
    """A retained overlay scene: holds drawing objects by id and sends what becomes of them."""
    def __contains__(self, arg0: int) -> bool: ...
    def __enter__(self) -> typing.Any: ...
    def __exit__(self, *args) -> bool: ...
    def __getitem__(self, arg0: int) -> typing.Any: ...
    def __init__(self, connection: typing.Any = ..., receiver_id: str = ..., first_id: int = ..., *, sender: typing.Any = ..., sender_id: str = ...) -> None: ...
    def __len__(self) -> int: ...
    def add(self, obj: typing.Any) -> None: """Holds the object and sends it."""
    def add_to_layer(self, object_id: int, layer_id: int) -> None: ...
    def close(self) -> None: """Removes every object still held (on the viewer too) and lets go."""
    def hide(self, object_id: int) -> None: ...
    def hide_attribute(self, group_id: int, attribute_id: int) -> None: ...
    def ids(self) -> List[int]: """The ids held, ascending."""
    def lookup(self, object_id: int) -> typing.Any: ...
    def next_id(self) -> int: ...
    def remove(self, object_id: int) -> typing.Any: """Removes the object and hands it back; None if not held."""
    def remove_from_layer(self, object_id: int, layer_id: int) -> None: ...
    def send(self, pdu: VistralDrawControlPdu) -> None: """Stamps the drawer's sender id into the draw PDU and sends it."""
    def show(self, object_id: int) -> None: ...
    def show_attribute(self, group_id: int, attribute_id: int) -> None: ...
    def update(self, obj: typing.Any) -> None: """Re-sends a held object (by id or object)."""

class RequestStateVCPdu(VistralControlPdu):
    """The request-state PDU: the fixed part alone, 152 bytes, command 14. Its ignore flags lie past its end and are never sent."""
    def __init__(self) -> None: """The PDU's length in bytes."""

class SmoothingOption():
    """How the viewer smooths the motion of the entities it shows."""
    DtSmoothingCubic: typing.ClassVar[SmoothingOption]
    DtSmoothingLinear: typing.ClassVar[SmoothingOption]
    DtSmoothingOff: typing.ClassVar[SmoothingOption]
    def __eq__(self, other: typing.Any) -> bool: ...
    def __init__(self, value: int) -> None: ...
    def __ne__(self, other: typing.Any) -> bool: ...
    @property
    def name(self) -> str: ...
    @property
    def value(self) -> int: ...
    def __int__(self) -> int: ...
    def __index__(self) -> int: ...
    @property
    def name(self) -> str: ...
    @property
    def value(self) -> int: ...

class TetherTrackVCPdu(VistralControlPdu):
    """Tether-track mode: ride with one entity at an offset in its topocentric "up" frame and look at another (viewer command 7, 424 bytes)."""
    def __init__(self) -> None: """Tether-track mode: ride with one entity at an offset in its topocentric "up" frame and look at another (viewer command 7, 424 bytes)."""
    @property
    def attach_id(self) -> str: """Both ids fill one cache: copy the first before asking for the second."""
    @attach_id.setter
    def attach_id(self, value: str) -> None: ...
    @property
    def attach_marking_text(self) -> str: """Empty unless the PDU is 424 bytes long: older senders do not carry them. An attach marking text of 64 characters has no terminator and reads on into the track marking text."""
    @attach_marking_text.setter
    def attach_marking_text(self, value: str) -> None: ...
    @property
    def offset(self) -> tuple[float, float, float]: """Travels in single precision."""
    @offset.setter
    def offset(self, value: tuple[float, float, float]) -> None: ...
    @property
    def track_id(self) -> str: """Both ids fill one cache: copy the first before asking for the second."""
    @track_id.setter
    def track_id(self, value: str) -> None: ...
    @property
    def track_marking_text(self) -> str: """Empty unless the PDU is 424 bytes long: older senders do not carry them. An attach marking text of 64 characters has no terminator and reads on into the track marking text."""
    @track_marking_text.setter
    def track_marking_text(self, value: str) -> None: ...

class TetherVCPdu(VistralControlPdu):
    """Tether mode: ride with an entity at an offset in its topocentric "up" frame, looking along an orientation (viewer command 1, 308 bytes)."""
    def __init__(self) -> None: """Tether mode: ride with an entity at an offset in its topocentric "up" frame, looking along an orientation (viewer command 1, 308 bytes)."""
    @property
    def attach_id(self) -> str: """The entity the eye is tethered to (ignore bit DtVcIgnore::FirstEntity)."""
    @attach_id.setter
    def attach_id(self, value: str) -> None: ...
    @property
    def marking_text(self) -> str: """Empty unless the PDU is 308 bytes long: older senders do not carry it."""
    @marking_text.setter
    def marking_text(self, value: str) -> None: ...
    @property
    def orientation(self) -> tuple[float, float, float]: """The eye's offset from the attached entity (ignore bits DtVcIgnore::TetherOffset) and its orientation (Orientation). Travels in single precision."""
    @orientation.setter
    def orientation(self, value: tuple[float, float, float]) -> None: ...
    @property
    def topo_up_offset(self) -> tuple[float, float, float]: """The eye's offset from the attached entity (ignore bits DtVcIgnore::TetherOffset) and its orientation (Orientation). Travels in single precision."""
    @topo_up_offset.setter
    def topo_up_offset(self, value: tuple[float, float, float]) -> None: ...

class TrackVCPdu(VistralControlPdu):
    """Track mode: stand at a world location and look at an entity (viewer command 6, 312 bytes)."""
    def __init__(self) -> None: """Track mode: stand at a world location and look at an entity (viewer command 6, 312 bytes)."""
    @property
    def marking_text(self) -> str: """Empty unless the PDU is 312 bytes long: older senders do not carry it."""
    @marking_text.setter
    def marking_text(self, value: str) -> None: ...
    @property
    def track_id(self) -> str: """The entity it looks at (ignore bit DtVcIgnore::FirstEntity)."""
    @track_id.setter
    def track_id(self, value: str) -> None: ...
    @property
    def world_location(self) -> tuple[float, float, float]: """Where the eye stands (ignore bits DtVcIgnore::Position)."""
    @world_location.setter
    def world_location(self, value: tuple[float, float, float]) -> None: ...

class UnknownVistralControlPdu(VistralControlPdu):
    """Any kind-202 image that no table recognises, so that its fixed part can still be read and printed."""

class Vdc3DAttachPoint():
    """Where a 3D drawing object is placed: nowhere in particular (the origin), a world location, an entity, or a point along another drawing object. Lines, cylinders, solids, 3D texts and attribute panels use it."""
    DtVdcAttachDrawObject: typing.ClassVar[VdcAttachKind]
    DtVdcAttachEntity: typing.ClassVar[VdcAttachKind]
    DtVdcAttachLocation: typing.ClassVar[VdcAttachKind]
    DtVdcAttachNone: typing.ClassVar[VdcAttachKind]
    class VdcAttachKind():
        """The values attachmentType() returns."""
        DtVdcAttachDrawObject: typing.ClassVar[VdcAttachKind]
        DtVdcAttachEntity: typing.ClassVar[VdcAttachKind]
        DtVdcAttachLocation: typing.ClassVar[VdcAttachKind]
        DtVdcAttachNone: typing.ClassVar[VdcAttachKind]
        def __eq__(self, other: typing.Any) -> bool: ...
        def __init__(self, value: int) -> None: ...
        def __ne__(self, other: typing.Any) -> bool: ...
        @property
        def name(self) -> str: ...
        @property
        def value(self) -> int: ...
        def __int__(self) -> int: ...
        def __index__(self) -> int: ...
        @property
        def name(self) -> str: ...
        @property
        def value(self) -> int: ...
    @typing.overload
    def __init__(self) -> None: """__init__(*args, **kwargs) Where a 3D drawing object is placed: nowhere in particular (the origin), a world location, an entity, or a point along another drawing object. Lines, cylinders, solids, 3D texts and attribute panels use it. Where a 3D drawing object is placed: nowhere in particular (the origin), a world location, an entity, or a point along another drawing object. Lines, cylinders, solids, 3D texts and attribute panels use it. A point along another drawing object, relativePosition of the way from its start. Where a 3D drawing object is placed: nowhere in particular (the origin), a world location, an entity, or a point along another drawing object. Lines, cylinders, solids, 3D texts and attribute panels use it."""
    @typing.overload
    def __init__(self, entity_id: str) -> None: """__init__(*args, **kwargs) Where a 3D drawing object is placed: nowhere in particular (the origin), a world location, an entity, or a point along another drawing object. Lines, cylinders, solids, 3D texts and attribute panels use it. Where a 3D drawing object is placed: nowhere in particular (the origin), a world location, an entity, or a point along another drawing object. Lines, cylinders, solids, 3D texts and attribute panels use it. A point along another drawing object, relativePosition of the way from its start. Where a 3D drawing object is placed: nowhere in particular (the origin), a world location, an entity, or a point along another drawing object. Lines, cylinders, solids, 3D texts and attribute panels use it."""
    @typing.overload
    def __init__(self, draw_object_id: int, relative_position: float) -> None: """__init__(*args, **kwargs) Where a 3D drawing object is placed: nowhere in particular (the origin), a world location, an entity, or a point along another drawing object. Lines, cylinders, solids, 3D texts and attribute panels use it. Where a 3D drawing object is placed: nowhere in particular (the origin), a world location, an entity, or a point along another drawing object. Lines, cylinders, solids, 3D texts and attribute panels use it. A point along another drawing object, relativePosition of the way from its start. Where a 3D drawing object is placed: nowhere in particular (the origin), a world location, an entity, or a point along another drawing object. Lines, cylinders, solids, 3D texts and attribute panels use it."""
    @typing.overload
    def __init__(self, location: tuple[float, float, float]) -> None: """__init__(*args, **kwargs) Where a 3D drawing object is placed: nowhere in particular (the origin), a world location, an entity, or a point along another drawing object. Lines, cylinders, solids, 3D texts and attribute panels use it. Where a 3D drawing object is placed: nowhere in particular (the origin), a world location, an entity, or a point along another drawing object. Lines, cylinders, solids, 3D texts and attribute panels use it. A point along another drawing object, relativePosition of the way from its start. Where a 3D drawing object is placed: nowhere in particular (the origin), a world location, an entity, or a point along another drawing object. Lines, cylinders, solids, 3D texts and attribute panels use it."""
    @property
    def attachment_type(self) -> int: """Each of the first three switches the attachment kind; the members of the other kinds keep their values. void setLocation(const DtVector64& location);"""
    def set_draw_object_id(self, draw_object_id: int) -> None: """Which kind the point is (DtVdcAttachKind), and each kind's members; those of other kinds keep what they were last given."""
    def set_entity_id(self, entity_id: str) -> None: """Which kind the point is (DtVdcAttachKind), and each kind's members; those of other kinds keep what they were last given."""
    def set_relative_position(self, relative_position: float) -> None: """Which kind the point is (DtVdcAttachKind), and each kind's members; those of other kinds keep what they were last given."""

class VdcObject():
    """The client-side drawing object: the base of everything the remote drawer keeps by id. Each concrete object owns one draw-control PDU for its whole life and copies its state into it on updatePdu()."""
    @property
    def id(self) -> int: """The object id."""
    @id.setter
    def id(self, value: int) -> None: ...
    @property
    def pdu(self) -> VistralDrawControlPdu: """The object's own PDU."""
    def update_pdu(self) -> None: """Copies the object's whole current state into its PDU."""

class VdcArea3DObject(VdcObject):
    """A filled polygon in the world, with an optional texture laid over it."""
    def __init__(self, id: int, points: list[tuple[float, float, float]], color: VdcColor, texture_directory: str, texture_filename: str, num_texture_tiles: int, flashing: bool) -> None: """The outline's world points (an area PDU carries 16 at most), its colour, and the texture laid over it: the folder and file it comes from and how many times it repeats."""
    @property
    def color(self) -> VdcColor: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @color.setter
    def color(self, value: VdcColor) -> None: ...
    @property
    def flashing(self) -> bool: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @flashing.setter
    def flashing(self, value: bool) -> None: ...
    @property
    def num_texture_tiles(self) -> int: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @num_texture_tiles.setter
    def num_texture_tiles(self, value: int) -> None: ...
    @property
    def pdu(self) -> VistralDrawControlPdu: ...
    def set_pdu_color(self) -> None: """The steps of updatePdu()."""
    def set_pdu_flashing(self) -> None: """The steps of updatePdu()."""
    def set_pdu_points(self) -> None: """The steps of updatePdu()."""
    def set_pdu_texture(self) -> None: """The steps of updatePdu()."""
    def set_vertex(self, i: int, point: tuple[float, float, float]) -> None: """Writes only an existing point; the number of points is fixed at construction."""
    @property
    def texture_directory(self) -> str: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @texture_directory.setter
    def texture_directory(self, value: str) -> None: ...
    @property
    def texture_filename(self) -> str: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @texture_filename.setter
    def texture_filename(self, value: str) -> None: ...
    def update_pdu(self) -> None: ...
    def vertex(self, i: int) -> tuple[float, float, float]: """Point i for 0 <= i < the number of points, else the zero vector."""

class VistralDrawControlPdu(VistralControlPdu):
    """The base of the draw-control PDUs: the object id and draw-object type after the fixed part, in the layout its version mark names."""
    def __init__(self) -> None: """The base of the draw-control PDUs: the object id and draw-object type after the fixed part, in the layout its version mark names."""
    @property
    def current_layout(self) -> bool: """paramVersion() == kCurrentParamVersion, read straight from the bytes: the choice every accessor makes, kept inline because it sits in front of every field access."""
    def internal_text(self, length: int, offset: int) -> str: """The trailing text of the given length at offset; reading stops at a zero byte or the image's end."""
    @property
    def object_id(self) -> int: """The drawn object the PDU is about (the drawer's object id)."""
    @object_id.setter
    def object_id(self, value: int) -> None: ...
    @property
    def param_version(self) -> int: """The version the image's own bytes state (0 without the mark). Exactly 1 selects the current layout for every accessor; any other value the version-0 layout."""
    @param_version.setter
    def param_version(self, value: int) -> None: ...
    def set_internal_text(self, text: str, offset: int) -> int: """Stores a trailing text at offset, resizing the PDU to end right after it; returns the bytes stored. An empty text changes nothing and stores 0."""
    @property
    def type(self) -> int: """The draw-object type (DtVdcObjectType): the shape, or for commands the command."""
    @type.setter
    def type(self, value: int) -> None: ...

class VdcAttachablePdu(VistralDrawControlPdu):
    """The attachable draw PDU: base of every draw-control PDU whose object is placed somewhere. It says what the object is anchored to (free positions, entities by designator, other drawn objects by id, or a pair of these), where along the anchor, with which offset, in which colour, and whether it flashes."""
    DtVcObjectAttachedToEntity: typing.ClassVar[VcObjectAttachment]
    DtVcObjectAttachedToEntityEntity: typing.ClassVar[VcObjectAttachment]
    DtVcObjectAttachedToEntityNoAttach: typing.ClassVar[VcObjectAttachment]
    DtVcObjectAttachedToEntityObject: typing.ClassVar[VcObjectAttachment]
    DtVcObjectAttachedToNoAttachEntity: typing.ClassVar[VcObjectAttachment]
    DtVcObjectAttachedToNoAttachObject: typing.ClassVar[VcObjectAttachment]
    DtVcObjectAttachedToObject: typing.ClassVar[VcObjectAttachment]
    DtVcObjectAttachedToObjectEntity: typing.ClassVar[VcObjectAttachment]
    DtVcObjectAttachedToObjectNoAttach: typing.ClassVar[VcObjectAttachment]
    DtVcObjectAttachedToObjectObject: typing.ClassVar[VcObjectAttachment]
    DtVcObjectNoAttach: typing.ClassVar[VcObjectAttachment]
    DtVcObjectNoAttachNoAttach: typing.ClassVar[VcObjectAttachment]
    class VcObjectAttachment():
        """Which anchors are used: anchor 1, then anchor 2 where there is one."""
        DtVcObjectAttachedToEntity: typing.ClassVar[VcObjectAttachment]
        DtVcObjectAttachedToEntityEntity: typing.ClassVar[VcObjectAttachment]
        DtVcObjectAttachedToEntityNoAttach: typing.ClassVar[VcObjectAttachment]
        DtVcObjectAttachedToEntityObject: typing.ClassVar[VcObjectAttachment]
        DtVcObjectAttachedToNoAttachEntity: typing.ClassVar[VcObjectAttachment]
        DtVcObjectAttachedToNoAttachObject: typing.ClassVar[VcObjectAttachment]
        DtVcObjectAttachedToObject: typing.ClassVar[VcObjectAttachment]
        DtVcObjectAttachedToObjectEntity: typing.ClassVar[VcObjectAttachment]
        DtVcObjectAttachedToObjectNoAttach: typing.ClassVar[VcObjectAttachment]
        DtVcObjectAttachedToObjectObject: typing.ClassVar[VcObjectAttachment]
        DtVcObjectNoAttach: typing.ClassVar[VcObjectAttachment]
        DtVcObjectNoAttachNoAttach: typing.ClassVar[VcObjectAttachment]
        def __eq__(self, other: typing.Any) -> bool: ...
        def __init__(self, value: int) -> None: ...
        def __ne__(self, other: typing.Any) -> bool: ...
        @property
        def name(self) -> str: ...
        @property
        def value(self) -> int: ...
        def __int__(self) -> int: ...
        def __index__(self) -> int: ...
        @property
        def name(self) -> str: ...
        @property
        def value(self) -> int: ...
    def __init__(self) -> None: """The attachable draw PDU: base of every draw-control PDU whose object is placed somewhere. It says what the object is anchored to (free positions, entities by designator, other drawn objects by id, or a pair of these), where along the anchor, with which offset, in which colour, and whether it flashes."""
    def attach_entity_id(self, index: int) -> str: """Anchors by index 0 or 1; any other index gives the null string, 0 or the zero vector."""
    def attach_object_id(self, index: int) -> int: """Anchors by index 0 or 1; any other index gives the null string, 0 or the zero vector."""
    @typing.overload
    def attach_to(self, pos: str) -> None: """attach_to(*args, **kwargs) Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value."""
    @typing.overload
    def attach_to(self, pos1: str, pos2: str) -> None: """attach_to(*args, **kwargs) Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value."""
    @typing.overload
    def attach_to(self, position: tuple[float, float, float]) -> None: """attach_to(*args, **kwargs) Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value."""
    @typing.overload
    def attach_to(self, object_id: int) -> None: """attach_to(*args, **kwargs) Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value."""
    @typing.overload
    def attach_to(self, entity: str) -> None: """attach_to(*args, **kwargs) Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value."""
    @typing.overload
    def attach_to(self, object_id1: int, object_id2: int) -> None: """attach_to(*args, **kwargs) Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value."""
    @typing.overload
    def attach_to(self, entity1: str, entity2: str) -> None: """attach_to(*args, **kwargs) Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value."""
    @typing.overload
    def attach_to(self, position1: tuple[float, float, float], position2: tuple[float, float, float]) -> None: """attach_to(*args, **kwargs) Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value."""
    @typing.overload
    def attach_to(self, entity1: str, object_id2: int) -> None: """attach_to(*args, **kwargs) Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value."""
    @typing.overload
    def attach_to(self, object_id1: int, entity2: str) -> None: """attach_to(*args, **kwargs) Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value."""
    @typing.overload
    def attach_to(self, entity1: str, position2: tuple[float, float, float]) -> None: """attach_to(*args, **kwargs) Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value."""
    @typing.overload
    def attach_to(self, position1: tuple[float, float, float], entity2: str) -> None: """attach_to(*args, **kwargs) Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value."""
    @typing.overload
    def attach_to(self, object_id1: int, position2: tuple[float, float, float]) -> None: """attach_to(*args, **kwargs) Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value."""
    @typing.overload
    def attach_to(self, position1: tuple[float, float, float], object_id2: int) -> None: """attach_to(*args, **kwargs) Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value. Position 1 in screen percent: two signed bytes, x and y; z keeps its value."""
    @property
    def attachment_type(self) -> VdcAttachablePdu.VcObjectAttachment: """How the object is anchored, as the last attachTo (or setAttachmentType) left it."""
    @attachment_type.setter
    def attachment_type(self, value: VdcAttachablePdu.VcObjectAttachment) -> None: ...
    @property
    def color(self) -> tuple[int, int, int, int]: """Four bytes r, g, b, a; color() points into the PDU (null only for an image too short to hold them)."""
    @color.setter
    def color(self, value: tuple[int, int, int, int]) -> None: ...
    @property
    def flashing(self) -> bool: """Whether the object flashes."""
    @flashing.setter
    def flashing(self, value: bool) -> None: ...
    @property
    def offset(self) -> tuple[float, float, float]: """An offset from the anchor."""
    @offset.setter
    def offset(self, value: tuple[float, float, float]) -> None: ...
    def position(self, index: int) -> tuple[float, float, float]: """Anchors by index 0 or 1; any other index gives the null string, 0 or the zero vector."""
    def relative_location(self, index: int) -> int: """Percent along the anchor; version 0 keeps one value whatever the index."""
    def set_relative_location(self, percent: int, index: int) -> None: """Percent along the anchor; version 0 keeps one value whatever the index."""

class VdcPolyObjectPduBase(VdcAttachablePdu):
    """Poly objects: the filled shapes. DtVdcPolyObjectPduBase adds fill, fill pattern, scale and rotation to an attachable PDU; DtVdcPolyObjectPdu draws the parametric shapes (circle, sphere, square, cube, cylinder), whose size is the scale (viewer command 2540)."""
    @property
    def fill(self) -> bool: """const, yet it writes the PDU's flag byte: callers hold poly objects by const reference when filling."""
    @fill.setter
    def fill(self, value: bool) -> None: ...
    @property
    def pattern(self) -> int: """The 32-bit pattern the shape is drawn with."""
    @pattern.setter
    def pattern(self, value: int) -> None: ...
    @property
    def rotation(self) -> tuple[float, float, float]: """Stored in single precision."""
    @rotation.setter
    def rotation(self, value: tuple[float, float, float]) -> None: ...
    @property
    def scale(self) -> tuple[float, float, float]: """Stored in single precision."""
    @scale.setter
    def scale(self, value: tuple[float, float, float]) -> None: ...

class VdcAreaPduBase(VdcPolyObjectPduBase):
    """Areas: a poly object outlined by up to 16 points, with an optional texture (viewer command 2553; type 3D area). The point count, texture names and tiling factor sit at the same places in both layouts, so a version-0 area, which ends where they begin, never carries them on the wire."""
    @property
    def num_points(self) -> int: """One byte: the low 8 bits of the argument, not checked against the 16 points."""
    @num_points.setter
    def num_points(self, value: int) -> None: ...
    @property
    def num_texture_tiles(self) -> int: """One byte."""
    @num_texture_tiles.setter
    def num_texture_tiles(self, value: int) -> None: ...
    def point(self, index: int) -> tuple[float, float, float]: """Points 0 to 15; other indices are ignored on set and give the zero vector."""
    def set_point(self, index: int, point: tuple[float, float, float]) -> None: """Points 0 to 15; other indices are ignored on set and give the zero vector."""
    @property
    def texture_directory(self) -> str: """256-byte fields filled like strncpy: a name of 256 characters or more is cut and left unterminated."""
    @texture_directory.setter
    def texture_directory(self, value: str) -> None: ...
    @property
    def texture_filename(self) -> str: """256-byte fields filled like strncpy: a name of 256 characters or more is cut and left unterminated."""
    @texture_filename.setter
    def texture_filename(self, value: str) -> None: ...

class VdcAreaPdu(VdcAreaPduBase):
    """An area in the current layout."""
    def __init__(self) -> None: """An area in the current layout."""

class VdcAreaPduV0(VdcAreaPduBase):
    """An area in the version-0 layout."""
    def __init__(self) -> None: """An area in the version-0 layout."""

class VdcAttributeGroupObject(VdcObject):
    """An attribute panel placed in the world: its template's attributes with a value each."""
    def __init__(self, id: int, group_template: VdcAttributeGroupTemplateObject, attachment: Vdc3DAttachPoint, enu_offset: tuple[float, float, float], color: VdcColor, flashing: bool) -> None: """groupTemplate is not owned and must outlive the group; without one the group has no values."""
    @property
    def attachment(self) -> Vdc3DAttachPoint: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @attachment.setter
    def attachment(self, value: Vdc3DAttachPoint) -> None: ...
    def bmp_attribute_value(self, attribute_id: int) -> str: """Values by attribute id. Each setter marks the value dirty; none checks the attribute's kind. An id with no value throws DtException ("Invalid attribute ID")."""
    @property
    def color(self) -> VdcColor: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @color.setter
    def color(self, value: VdcColor) -> None: ...
    @property
    def enu_offset(self) -> tuple[float, float, float]: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @enu_offset.setter
    def enu_offset(self, value: tuple[float, float, float]) -> None: ...
    @property
    def flashing(self) -> bool: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @flashing.setter
    def flashing(self, value: bool) -> None: ...
    def graph_attribute_value_x(self, attribute_id: int) -> float: """Values by attribute id. Each setter marks the value dirty; none checks the attribute's kind. An id with no value throws DtException ("Invalid attribute ID")."""
    def graph_attribute_value_y(self, attribute_id: int) -> float: """Values by attribute id. Each setter marks the value dirty; none checks the attribute's kind. An id with no value throws DtException ("Invalid attribute ID")."""
    def numeric_attribute_value(self, attribute_id: int) -> float: """Values by attribute id. Each setter marks the value dirty; none checks the attribute's kind. An id with no value throws DtException ("Invalid attribute ID")."""
    @property
    def pdu(self) -> VistralDrawControlPdu: ...
    def set_bmp_attribute_value(self, attribute_id: int, value: str) -> None: """Values by attribute id. Each setter marks the value dirty; none checks the attribute's kind. An id with no value throws DtException ("Invalid attribute ID")."""
    def set_graph_attribute_value_x(self, attribute_id: int, value: float) -> None: """Values by attribute id. Each setter marks the value dirty; none checks the attribute's kind. An id with no value throws DtException ("Invalid attribute ID")."""
    def set_graph_attribute_value_y(self, attribute_id: int, value: float) -> None: """Values by attribute id. Each setter marks the value dirty; none checks the attribute's kind. An id with no value throws DtException ("Invalid attribute ID")."""
    def set_numeric_attribute_value(self, attribute_id: int, value: float) -> None: """Values by attribute id. Each setter marks the value dirty; none checks the attribute's kind. An id with no value throws DtException ("Invalid attribute ID")."""
    def set_pdu_attach(self) -> None: """The steps of updatePdu()."""
    def set_pdu_color(self) -> None: """The steps of updatePdu()."""
    def set_pdu_flashing(self) -> None: """The steps of updatePdu()."""
    def set_pdu_offset(self) -> None: """The steps of updatePdu()."""
    def set_value_bar_attribute_value(self, attribute_id: int, value: float) -> None: """Values by attribute id. Each setter marks the value dirty; none checks the attribute's kind. An id with no value throws DtException ("Invalid attribute ID")."""
    def update_all_attribute_pdus(self) -> None: """updateAttributePdu for every id, ascending."""
    def update_attribute_pdu(self, attribute_id: int) -> None: """Brings the value's update PDU up to date from a dirty value, by the attribute's kind; throws for an id with no value. The dirty flag stays for the drawer to clear once the PDU is sent."""
    def update_pdu(self) -> None: """Placement, offset, colour and flashing; the values' PDUs are left to updateAttributePdu."""
    def value_bar_attribute_value(self, attribute_id: int) -> float: """Values by attribute id. Each setter marks the value dirty; none checks the attribute's kind. An id with no value throws DtException ("Invalid attribute ID")."""

class VdcAttributeGroupTemplateObject(VdcObject):
    """An attribute panel's layout: a named group template that owns one attribute template per value."""
    def __init__(self, id: int, name: str) -> None: """An empty layout; createAttributeTemplate fills it."""
    def attribute_template(self, id: int) -> VdcAttributeTemplateObject: """The template under the id, or null."""
    @typing.overload
    def create_attribute_template(self, id: int, name: str, type: VdcAttributeTemplateObject.VdcAttributeType) -> VdcAttributeTemplateObject: """create_attribute_template(*args, **kwargs) A new attribute template of this group, owned by it; a second one under an id takes the id's place in the lookup, and both stay in the list. A value-bar template with its range."""
    @typing.overload
    def create_attribute_template(self, id: int, name: str, min_range: float, max_range: float) -> VdcAttributeTemplateObject: """create_attribute_template(*args, **kwargs) A new attribute template of this group, owned by it; a second one under an id takes the id's place in the lookup, and both stay in the list. A value-bar template with its range."""
    @property
    def name(self) -> str: """The panel's name."""
    @property
    def pdu(self) -> VistralDrawControlPdu: ...
    def update_pdu(self) -> None: """Nothing to write: the PDU holds what the constructor set."""

class VdcAttributePduBase(VdcAttachablePdu):
    """Attribute panels: one element of a drawn list of named values (viewer command 2570; the type says which kind of element). It carries a name, the id of its group and an optional value range."""
    @property
    def attribute_group_id(self) -> int: """The attribute's name, a 64-byte text at the PDU's end, and the id of the group it belongs to."""
    @attribute_group_id.setter
    def attribute_group_id(self, value: int) -> None: ...
    @property
    def has_range(self) -> bool: """The whole flag byte: a flashing attribute reports a range."""
    @property
    def name(self) -> str: """The attribute's name, a 64-byte text at the PDU's end, and the id of the group it belongs to."""
    @name.setter
    def name(self, value: str) -> None: ...
    @property
    def range_max(self) -> float: """The ends of the range."""
    @property
    def range_min(self) -> float: """The ends of the range."""
    def set_range(self, minimum: float, maximum: float) -> None: """Writes both values and sets the whole flag byte to 1, which clears flashing."""

class VdcAttributePdu(VdcAttributePduBase):
    """An attribute PDU in the current layout."""
    def __init__(self) -> None: """An attribute PDU in the current layout."""

class VdcAttributePduV0(VdcAttributePduBase):
    """An attribute PDU in the version-0 layout."""
    def __init__(self) -> None: """An attribute PDU in the version-0 layout."""

class VdcAttributeTemplateObject(VdcObject):
    """The layout of an attribute panel: a group template holding one attribute template per value the panel shows. The group template owns its attribute templates; the drawer sends them right after it."""
    DtVdcAttTypeBitmap: typing.ClassVar[VdcAttributeType]
    DtVdcAttTypeGraphPoint: typing.ClassVar[VdcAttributeType]
    DtVdcAttTypeNoValue: typing.ClassVar[VdcAttributeType]
    DtVdcAttTypeSingleValue: typing.ClassVar[VdcAttributeType]
    DtVdcAttTypeValueBar: typing.ClassVar[VdcAttributeType]
    class VdcAttributeType():
        """What one attribute shows; each kind has its own template PDU type."""
        DtVdcAttTypeBitmap: typing.ClassVar[VdcAttributeType]
        DtVdcAttTypeGraphPoint: typing.ClassVar[VdcAttributeType]
        DtVdcAttTypeNoValue: typing.ClassVar[VdcAttributeType]
        DtVdcAttTypeSingleValue: typing.ClassVar[VdcAttributeType]
        DtVdcAttTypeValueBar: typing.ClassVar[VdcAttributeType]
        def __eq__(self, other: typing.Any) -> bool: ...
        def __init__(self, value: int) -> None: ...
        def __ne__(self, other: typing.Any) -> bool: ...
        @property
        def name(self) -> str: ...
        @property
        def value(self) -> int: ...
        def __int__(self) -> int: ...
        def __index__(self) -> int: ...
        @property
        def name(self) -> str: ...
        @property
        def value(self) -> int: ...
    def __init__(self, id: int, template_id: int, name: str, type: VdcAttributeTemplateObject.VdcAttributeType) -> None: """templateId: the group template the attribute belongs to. A type outside the enumeration sets no PDU type."""
    @property
    def attribute_type(self) -> VdcAttributeTemplateObject.VdcAttributeType: """What the constructor set: the attribute's name, the group template it belongs to and its kind."""
    @property
    def name(self) -> str: """What the constructor set: the attribute's name, the group template it belongs to and its kind."""
    @property
    def pdu(self) -> VistralDrawControlPdu: ...
    @property
    def template_id(self) -> int: """What the constructor set: the attribute's name, the group template it belongs to and its kind."""
    def update_pdu(self) -> None: """Writes what the constructor set: type, name, id and group id."""

class VdcAttributeUpdatePduBase(VistralDrawControlPdu):
    """Attribute updates: a new value for an attribute already drawn, as two numbers, a reset or a text (viewer command 2580; types value set, value reset, value set text)."""
    @property
    def group_id(self) -> int: """The new text of a text set, a 64-byte text at the PDU's end, and the group the attribute belongs to."""
    @group_id.setter
    def group_id(self, value: int) -> None: ...
    @property
    def text(self) -> str: """The new text of a text set, a 64-byte text at the PDU's end, and the group the attribute belongs to."""
    @text.setter
    def text(self, value: str) -> None: ...
    @property
    def value_x(self) -> float: """The new value of a value set: one number in x, or a graph point's x and y."""
    @value_x.setter
    def value_x(self, value: float) -> None: ...
    @property
    def value_y(self) -> float: """The new value of a value set: one number in x, or a graph point's x and y."""
    @value_y.setter
    def value_y(self, value: float) -> None: ...

class VdcAttributeUpdatePdu(VdcAttributeUpdatePduBase):
    """An attribute update in the current layout."""
    def __init__(self) -> None: """An attribute update in the current layout."""

class VdcAttributeUpdatePduV0(VdcAttributeUpdatePduBase):
    """An attribute update in the version-0 layout."""
    def __init__(self) -> None: """An attribute update in the version-0 layout."""

class VdcAttributeValue():
    """One attribute's current value and the PDU that carries it."""
    @property
    def text_value(self) -> str: """Changed since its update PDU was last sent. bool dirty() const { return dirty_; } void setDirty(bool dirty) { dirty_ = dirty; } // The PDU that carries the value to the viewer. DtVdcAttributeUpdatePdu& attributeUpdatePdu() { return updatePdu_; }  private: DtString textValue_{""};"""

class VdcBarAttributeTemplateObject(VdcAttributeTemplateObject):
    """A value-bar attribute with its range."""
    def __init__(self, id: int, template_id: int, name: str, min_range: float, max_range: float) -> None: """A value bar of the group template templateId, showing values from minRange to maxRange."""
    @property
    def max_range(self) -> float: """The bar's range as constructed."""
    @property
    def min_range(self) -> float: """The bar's range as constructed."""
    def update_pdu(self) -> None: """Also writes the range."""

class VdcColor():
    """An RGBA overlay colour that keeps an HSV view of itself in step: RGB setters recompute hue, saturation and value, HSV setters recompute red, green and blue. Alpha takes part in neither conversion."""
    def __eq__(self, arg0: VdcColor) -> bool: ...
    @typing.overload
    def __init__(self) -> None: """__init__(*args, **kwargs) Opaque black; the HSV view is only meaningful after a setter. constexpr so that the class constants are ready before any other code runs at load time."""
    @typing.overload
    def __init__(self, red: int, green: int, blue: int, alpha: int) -> None: """__init__(*args, **kwargs) Opaque black; the HSV view is only meaningful after a setter. constexpr so that the class constants are ready before any other code runs at load time."""
    def __ne__(self, arg0: VdcColor) -> bool: ...
    def set_alpha(self, alpha: int) -> None: """constexpr so that the class constants are ready before any other code runs at load time."""
    def set_blue(self, blue: int) -> None: """constexpr so that the class constants are ready before any other code runs at load time."""
    def set_green(self, green: int) -> None: """constexpr so that the class constants are ready before any other code runs at load time."""
    def set_hsv(self, hue: int, saturation: float, value: float, alpha: int) -> None: """Each HSV setter recomputes red, green and blue; setHSV sets the alpha too."""
    def set_hue(self, hue: int) -> None: """Each HSV setter recomputes red, green and blue; setHSV sets the alpha too."""
    def set_saturation(self, saturation: float) -> None: """Each HSV setter recomputes red, green and blue; setHSV sets the alpha too."""
    def set_value(self, value: float) -> None: """Each HSV setter recomputes red, green and blue; setHSV sets the alpha too."""

class VdcCommandPduBase(VistralDrawControlPdu):
    """What the command PDU's two layouts share: its text form, its dump and the layer id."""
    @property
    def layer_id(self) -> int: """The layer of the add-to-layer and remove-from-layer commands."""
    @layer_id.setter
    def layer_id(self, value: int) -> None: ...

class VdcCommandPdu(VdcCommandPduBase):
    """A command on a drawn object in the current layout."""
    def __init__(self) -> None: """A command on a drawn object in the current layout."""

class VdcCommandPduV0(VdcCommandPduBase):
    """A command on a drawn object in the version-0 layout."""
    def __init__(self) -> None: """A command on a drawn object in the version-0 layout."""

class VdcEllipsoidCuboidBase(VdcObject):
    """What the ellipsoid and the cuboid share: a solid placed at an attach point, shifted by an east-north-up offset in metres, sized along its three axes and rotated. The subclass names the shape and its size."""
    @property
    def attachment(self) -> Vdc3DAttachPoint: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @attachment.setter
    def attachment(self, value: Vdc3DAttachPoint) -> None: ...
    @property
    def color(self) -> VdcColor: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @color.setter
    def color(self, value: VdcColor) -> None: ...
    @property
    def enu_offset(self) -> tuple[float, float, float]: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @enu_offset.setter
    def enu_offset(self, value: tuple[float, float, float]) -> None: ...
    @property
    def flashing(self) -> bool: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @flashing.setter
    def flashing(self, value: bool) -> None: ...
    @property
    def pdu(self) -> VistralDrawControlPdu: ...
    @property
    def rotation(self) -> tuple[float, float, float]: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @rotation.setter
    def rotation(self, value: tuple[float, float, float]) -> None: ...
    def set_pdu_attach(self) -> None: """The steps of updatePdu()."""
    def set_pdu_color(self) -> None: """The steps of updatePdu()."""
    def set_pdu_flashing(self) -> None: """The steps of updatePdu()."""
    def set_pdu_offset(self) -> None: """The steps of updatePdu()."""
    def set_pdu_rotation(self) -> None: """The steps of updatePdu()."""
    def set_pdu_scale(self) -> None: """The steps of updatePdu()."""
    def update_pdu(self) -> None: ...

class VdcCuboidObject(VdcEllipsoidCuboidBase):
    """A box in the world, sized by its length, width and height."""
    def __init__(self, id: int, attachment: Vdc3DAttachPoint, length: float, width: float, height: float, enu_offset: tuple[float, float, float], rotation: tuple[float, float, float], color: VdcColor, flashing: bool) -> None: """A box at the attach point, moved by enuOffset (east, north, up) and turned by rotation."""
    @property
    def height(self) -> float: """The box's extent along each axis. The setters change the object only; the PDU follows at the next updatePdu()."""
    @height.setter
    def height(self, value: float) -> None: ...
    def set_length(self, length: float) -> None: """The box's extent along each axis. The setters change the object only; the PDU follows at the next updatePdu()."""
    @property
    def width(self) -> float: """The box's extent along each axis. The setters change the object only; the PDU follows at the next updatePdu()."""
    @width.setter
    def width(self, value: float) -> None: ...

class VdcCylinderObject(VdcObject):
    """A cylinder in the world: either placed at one attach point with a length and a rotation, or spanning two attach points. Its cross-section is given by two diameters."""
    @typing.overload
    def __init__(self, id: int, start: Vdc3DAttachPoint, end: Vdc3DAttachPoint, diameters: VdcVector2D, enu_offset: tuple[float, float, float], color: VdcColor, flashing: bool) -> None: """__init__(*args, **kwargs) From start to end; length 0 and no rotation. At one attach point; the end attachment is none."""
    @typing.overload
    def __init__(self, id: int, attachment: Vdc3DAttachPoint, length: float, diameters: VdcVector2D, enu_offset: tuple[float, float, float], rotation: tuple[float, float, float], color: VdcColor, flashing: bool) -> None: """__init__(*args, **kwargs) From start to end; length 0 and no rotation. At one attach point; the end attachment is none."""
    @property
    def attachment(self) -> Vdc3DAttachPoint: """The setters change the object only; the PDU follows at the next updatePdu(). attachment() and startAttachment() are the same member."""
    @attachment.setter
    def attachment(self, value: Vdc3DAttachPoint) -> None: ...
    @property
    def color(self) -> VdcColor: """The setters change the object only; the PDU follows at the next updatePdu(). attachment() and startAttachment() are the same member."""
    @color.setter
    def color(self, value: VdcColor) -> None: ...
    @property
    def diameters(self) -> VdcVector2D: """The setters change the object only; the PDU follows at the next updatePdu(). attachment() and startAttachment() are the same member."""
    @diameters.setter
    def diameters(self, value: VdcVector2D) -> None: ...
    @property
    def end_attachment(self) -> Vdc3DAttachPoint: """The setters change the object only; the PDU follows at the next updatePdu(). attachment() and startAttachment() are the same member."""
    @end_attachment.setter
    def end_attachment(self, value: Vdc3DAttachPoint) -> None: ...
    @property
    def enu_offset(self) -> tuple[float, float, float]: """The setters change the object only; the PDU follows at the next updatePdu(). attachment() and startAttachment() are the same member."""
    @enu_offset.setter
    def enu_offset(self, value: tuple[float, float, float]) -> None: ...
    @property
    def flashing(self) -> bool: """The setters change the object only; the PDU follows at the next updatePdu(). attachment() and startAttachment() are the same member."""
    @flashing.setter
    def flashing(self, value: bool) -> None: ...
    @property
    def pdu(self) -> VistralDrawControlPdu: ...
    @property
    def rotation(self) -> tuple[float, float, float]: """The setters change the object only; the PDU follows at the next updatePdu(). attachment() and startAttachment() are the same member."""
    @rotation.setter
    def rotation(self, value: tuple[float, float, float]) -> None: ...
    def set_length(self, length: float) -> None: """The setters change the object only; the PDU follows at the next updatePdu(). attachment() and startAttachment() are the same member."""
    def set_pdu_attach(self) -> None: """The steps of updatePdu()."""
    def set_pdu_color(self) -> None: """The steps of updatePdu()."""
    def set_pdu_flashing(self) -> None: """The steps of updatePdu()."""
    def set_pdu_offset(self) -> None: """The steps of updatePdu()."""
    def set_pdu_rotation(self) -> None: """The steps of updatePdu()."""
    def set_pdu_scale(self) -> None: """The steps of updatePdu()."""
    @property
    def start_attachment(self) -> Vdc3DAttachPoint: """The setters change the object only; the PDU follows at the next updatePdu(). attachment() and startAttachment() are the same member."""
    @start_attachment.setter
    def start_attachment(self, value: Vdc3DAttachPoint) -> None: ...
    def update_pdu(self) -> None: ...

class VdcDrawLayerObject(VdcObject):
    """A named layer: the drawer's addToLayer and removeFromLayer put other objects into it by id."""
    def __init__(self, id: int, layer_name: str) -> None: """An empty layer under its name."""
    @property
    def layer_name(self) -> str: """Fixed at construction."""
    @property
    def pdu(self) -> VistralDrawControlPdu: ...
    def update_pdu(self) -> None: ...

class VdcEllRectBase(VdcObject):
    """What the screen ellipse and rectangle share: a position and size in the view (0..1), a rotation in the screen plane, colour, fill and pattern. The subclass names the shape."""
    @property
    def color(self) -> VdcColor: """How the shape is drawn: colour, filled or outlined, dash pattern, flashing."""
    @color.setter
    def color(self, value: VdcColor) -> None: ...
    @property
    def fill(self) -> bool: """How the shape is drawn: colour, filled or outlined, dash pattern, flashing."""
    @fill.setter
    def fill(self, value: bool) -> None: ...
    @property
    def flashing(self) -> bool: """How the shape is drawn: colour, filled or outlined, dash pattern, flashing."""
    @flashing.setter
    def flashing(self, value: bool) -> None: ...
    @property
    def pattern(self) -> int: """How the shape is drawn: colour, filled or outlined, dash pattern, flashing."""
    @pattern.setter
    def pattern(self, value: int) -> None: ...
    @property
    def pdu(self) -> VistralDrawControlPdu: ...
    @property
    def position(self) -> VdcVector2D: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @position.setter
    def position(self, value: VdcVector2D) -> None: ...
    @property
    def rotation(self) -> float: """Radians."""
    @rotation.setter
    def rotation(self, value: float) -> None: ...
    def set_pdu_attach(self) -> None: """The steps of updatePdu()."""
    def set_pdu_color(self) -> None: """The steps of updatePdu()."""
    def set_pdu_fill(self) -> None: """The steps of updatePdu()."""
    def set_pdu_flashing(self) -> None: """The steps of updatePdu()."""
    def set_pdu_pattern(self) -> None: """The steps of updatePdu()."""
    def set_pdu_rotation(self) -> None: """The steps of updatePdu()."""
    def set_pdu_scale(self) -> None: """The steps of updatePdu()."""
    @property
    def size(self) -> VdcVector2D: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @size.setter
    def size(self, value: VdcVector2D) -> None: ...
    def update_pdu(self) -> None: ...

class VdcEllipseObject(VdcEllRectBase):
    """A ellipse in the viewer's screen plane."""
    def __init__(self, id: int, position: VdcVector2D, size: VdcVector2D, rotation: float, color: VdcColor, fill: bool, pattern: int, flashing: bool) -> None: """rotation in radians."""

class VdcEllipsoidObject(VdcEllipsoidCuboidBase):
    """An ellipsoid in the world, sized by its three diameters."""
    def __init__(self, id: int, attachment: Vdc3DAttachPoint, diameters: tuple[float, float, float], enu_offset: tuple[float, float, float], rotation: tuple[float, float, float], color: VdcColor, flashing: bool) -> None: """An ellipsoid at the attach point, moved by enuOffset (east, north, up) and turned by rotation."""
    @property
    def diameters(self) -> tuple[float, float, float]: """The diameter along each axis; the setter changes the object only, the PDU follows at the next updatePdu()."""
    @diameters.setter
    def diameters(self, value: tuple[float, float, float]) -> None: ...

class VdcLayerPduBase(VistralDrawControlPdu):
    """Layers: a named group of drawn objects; the object id is the layer's id (viewer command 2590, type 2590)."""
    @property
    def name(self) -> str: """The layer's name, a text at the PDU's end."""
    @name.setter
    def name(self, value: str) -> None: ...

class VdcLayerPdu(VdcLayerPduBase):
    """A layer in the current layout."""
    def __init__(self) -> None: """A layer in the current layout."""

class VdcLayerPduV0(VdcLayerPduBase):
    """A layer in the version-0 layout."""
    def __init__(self) -> None: """A layer in the version-0 layout."""

class VdcLine2DObject(VdcObject):
    """A line in the viewer's screen plane, cut into segments along its length. Positions are fractions of the view, 0..1 on each axis."""
    def __init__(self, id: int, start: VdcVector2D, end: VdcVector2D, num_segments: int, color: VdcColor, style: VdcLineSegment.VdcSegmentStyle, arrow_style: VdcLineSegment.VdcSegmentArrowStyle, thickness: int, pattern: int, flashing: bool) -> None: """numSegments segments of equal share, each with the given look."""
    def arrow_style(self, segment: int) -> VdcLineSegment.VdcSegmentArrowStyle: """Each segment's look, by segment index."""
    def color(self, segment: int) -> VdcColor: """Each segment's look, by segment index."""
    @property
    def end_position(self) -> VdcVector2D: """The setters change the object only; the PDU follows at the next updatePdu(). Segment indices come last; an index out of range reads a default segment and writes nothing."""
    @end_position.setter
    def end_position(self, value: VdcVector2D) -> None: ...
    @property
    def flashing(self) -> bool: """Each segment's look, by segment index."""
    @flashing.setter
    def flashing(self, value: bool) -> None: ...
    def line_style(self, segment: int) -> VdcLineSegment.VdcSegmentStyle: """Each segment's look, by segment index."""
    @property
    def num_segments(self) -> int: """The setters change the object only; the PDU follows at the next updatePdu(). Segment indices come last; an index out of range reads a default segment and writes nothing."""
    @num_segments.setter
    def num_segments(self, value: int) -> None: ...
    def pattern(self, segment: int) -> int: """Each segment's look, by segment index."""
    @property
    def pdu(self) -> VistralDrawControlPdu: ...
    def percentage(self, segment: int) -> float: """Each segment's look, by segment index."""
    def set_arrow_style(self, style: VdcLineSegment.VdcSegmentArrowStyle, segment: int) -> None: """Each segment's look, by segment index."""
    def set_color(self, color: VdcColor, segment: int) -> None: """Each segment's look, by segment index."""
    def set_line_style(self, style: VdcLineSegment.VdcSegmentStyle, segment: int) -> None: """Each segment's look, by segment index."""
    def set_pattern(self, pattern: int, segment: int) -> None: """Each segment's look, by segment index."""
    def set_pdu_arrow_style(self, segment: int) -> None: """The steps of updatePdu()."""
    def set_pdu_attach(self) -> None: """The steps of updatePdu()."""
    def set_pdu_color(self, segment: int) -> None: """The steps of updatePdu()."""
    def set_pdu_flashing(self) -> None: """The steps of updatePdu()."""
    def set_pdu_line_style(self, segment: int) -> None: """The steps of updatePdu()."""
    def set_pdu_num_segments(self) -> None: """The steps of updatePdu()."""
    def set_pdu_pattern(self, segment: int) -> None: """The steps of updatePdu()."""
    def set_pdu_percentage(self, segment: int) -> None: """The steps of updatePdu()."""
    def set_pdu_thickness(self, segment: int) -> None: """The steps of updatePdu()."""
    def set_percentage(self, percentage: float, segment: int) -> None: """Each segment's look, by segment index."""
    def set_thickness(self, thickness: int, segment: int) -> None: """Each segment's look, by segment index."""
    @property
    def start_position(self) -> VdcVector2D: """The setters change the object only; the PDU follows at the next updatePdu(). Segment indices come last; an index out of range reads a default segment and writes nothing."""
    @start_position.setter
    def start_position(self, value: VdcVector2D) -> None: ...
    def thickness(self, segment: int) -> int: """Each segment's look, by segment index."""
    def update_pdu(self) -> None: ...

class VdcLine3DObject(VdcObject):
    """A line in the world between two attach points (locations, entities or other drawing objects), cut into segments along its length, shifted by an east-north-up offset in metres."""
    def __init__(self, id: int, start: Vdc3DAttachPoint, end: Vdc3DAttachPoint, num_segments: int, enu_offset: tuple[float, float, float], color: VdcColor, style: VdcLineSegment.VdcSegmentStyle, arrow_style: VdcLineSegment.VdcSegmentArrowStyle, thickness: int, pattern: int, flashing: bool, check_los: bool, projected: bool) -> None: """A line between two attach points, moved by enuOffset (east, north, up): numSegments segments of equal share, each with the given look. checkLos and projected are the line PDU's flags of the same names."""
    def arrow_style(self, segment: int) -> VdcLineSegment.VdcSegmentArrowStyle: """As for the 2D line: setters change the object only, segment indices come last."""
    @property
    def check_los(self) -> bool: """As for the 2D line: setters change the object only, segment indices come last."""
    @check_los.setter
    def check_los(self, value: bool) -> None: ...
    def color(self, segment: int) -> VdcColor: """As for the 2D line: setters change the object only, segment indices come last."""
    @property
    def end_attachment(self) -> Vdc3DAttachPoint: """As for the 2D line: setters change the object only, segment indices come last."""
    @end_attachment.setter
    def end_attachment(self, value: Vdc3DAttachPoint) -> None: ...
    @property
    def enu_offset(self) -> tuple[float, float, float]: """As for the 2D line: setters change the object only, segment indices come last."""
    @enu_offset.setter
    def enu_offset(self, value: tuple[float, float, float]) -> None: ...
    @property
    def flashing(self) -> bool: """As for the 2D line: setters change the object only, segment indices come last."""
    @flashing.setter
    def flashing(self, value: bool) -> None: ...
    def line_style(self, segment: int) -> VdcLineSegment.VdcSegmentStyle: """As for the 2D line: setters change the object only, segment indices come last."""
    @property
    def num_segments(self) -> int: """As for the 2D line: setters change the object only, segment indices come last."""
    @num_segments.setter
    def num_segments(self, value: int) -> None: ...
    def pattern(self, segment: int) -> int: """As for the 2D line: setters change the object only, segment indices come last."""
    @property
    def pdu(self) -> VistralDrawControlPdu: ...
    def percentage(self, segment: int) -> float: """As for the 2D line: setters change the object only, segment indices come last."""
    @property
    def projected(self) -> bool: """As for the 2D line: setters change the object only, segment indices come last."""
    @projected.setter
    def projected(self, value: bool) -> None: ...
    def set_arrow_style(self, style: VdcLineSegment.VdcSegmentArrowStyle, segment: int) -> None: """As for the 2D line: setters change the object only, segment indices come last."""
    def set_color(self, color: VdcColor, segment: int) -> None: """As for the 2D line: setters change the object only, segment indices come last."""
    def set_line_style(self, style: VdcLineSegment.VdcSegmentStyle, segment: int) -> None: """As for the 2D line: setters change the object only, segment indices come last."""
    def set_pattern(self, pattern: int, segment: int) -> None: """As for the 2D line: setters change the object only, segment indices come last."""
    def set_pdu_arrow_style(self, segment: int) -> None: """The steps of updatePdu()."""
    def set_pdu_attach(self) -> None: """The steps of updatePdu()."""
    def set_pdu_check_los(self) -> None: """The steps of updatePdu()."""
    def set_pdu_color(self, segment: int) -> None: """The steps of updatePdu()."""
    def set_pdu_flashing(self) -> None: """The steps of updatePdu()."""
    def set_pdu_line_style(self, segment: int) -> None: """The steps of updatePdu()."""
    def set_pdu_num_segments(self) -> None: """The steps of updatePdu()."""
    def set_pdu_offset(self) -> None: """The steps of updatePdu()."""
    def set_pdu_pattern(self, segment: int) -> None: """The steps of updatePdu()."""
    def set_pdu_percentage(self, segment: int) -> None: """The steps of updatePdu()."""
    def set_pdu_projected(self) -> None: """The steps of updatePdu()."""
    def set_pdu_thickness(self, segment: int) -> None: """The steps of updatePdu()."""
    def set_percentage(self, percentage: float, segment: int) -> None: """As for the 2D line: setters change the object only, segment indices come last."""
    def set_thickness(self, thickness: int, segment: int) -> None: """As for the 2D line: setters change the object only, segment indices come last."""
    @property
    def start_attachment(self) -> Vdc3DAttachPoint: """As for the 2D line: setters change the object only, segment indices come last."""
    @start_attachment.setter
    def start_attachment(self, value: Vdc3DAttachPoint) -> None: ...
    def thickness(self, segment: int) -> int: """As for the 2D line: setters change the object only, segment indices come last."""
    def update_pdu(self) -> None: ...

class VdcLinePdu(VdcAttachablePdu):
    """Lines: a line between the anchors as one or more segments, each with its share of the length, thickness, dash pattern, colour, arrow style and appearance (viewer command 2520; 2530 for a version-0 segmented line). The current layout always carries a segment table. In version 0 the draw-object type decides: the segmented types (2531, 2532) carry a table, every other type one implicit segment in fixed fields."""
    DtVdcLineAppearanceLightning: typing.ClassVar[VdcLineAppearance]
    DtVdcLineAppearanceStraight: typing.ClassVar[VdcLineAppearance]
    DtVdcStyleArrowDouble: typing.ClassVar[VdcLineArrowStyle]
    DtVdcStyleArrowEnd: typing.ClassVar[VdcLineArrowStyle]
    DtVdcStyleArrowStart: typing.ClassVar[VdcLineArrowStyle]
    DtVdcStyleNoArrow: typing.ClassVar[VdcLineArrowStyle]
    class VdcLineAppearance():
        """How a segment is drawn."""
        DtVdcLineAppearanceLightning: typing.ClassVar[VdcLineAppearance]
        DtVdcLineAppearanceStraight: typing.ClassVar[VdcLineAppearance]
        def __eq__(self, other: typing.Any) -> bool: ...
        def __init__(self, value: int) -> None: ...
        def __ne__(self, other: typing.Any) -> bool: ...
        @property
        def name(self) -> str: ...
        @property
        def value(self) -> int: ...
        def __int__(self) -> int: ...
        def __index__(self) -> int: ...
        @property
        def name(self) -> str: ...
        @property
        def value(self) -> int: ...
    class VdcLineArrowStyle():
        """Which ends of a segment carry an arrowhead."""
        DtVdcStyleArrowDouble: typing.ClassVar[VdcLineArrowStyle]
        DtVdcStyleArrowEnd: typing.ClassVar[VdcLineArrowStyle]
        DtVdcStyleArrowStart: typing.ClassVar[VdcLineArrowStyle]
        DtVdcStyleNoArrow: typing.ClassVar[VdcLineArrowStyle]
        def __eq__(self, other: typing.Any) -> bool: ...
        def __init__(self, value: int) -> None: ...
        def __ne__(self, other: typing.Any) -> bool: ...
        @property
        def name(self) -> str: ...
        @property
        def value(self) -> int: ...
        def __int__(self) -> int: ...
        def __index__(self) -> int: ...
        @property
        def name(self) -> str: ...
        @property
        def value(self) -> int: ...
    def __init__(self) -> None: """One segment that takes the whole line (408 bytes); both relative locations at 50 percent."""
    def appearance(self, segment: int) -> VdcLinePdu.VdcLineAppearance: """Setters without an index act on segment 0 (or the plain line); indexed setters past the count do nothing and indexed getters past it give 0 (a null colour)."""
    def arrow_style(self, segment: int) -> VdcLinePdu.VdcLineArrowStyle: """Setters without an index act on segment 0 (or the plain line); indexed setters past the count do nothing and indexed getters past it give 0 (a null colour)."""
    @property
    def check_los(self) -> bool: """Current layout only; version 0 ignores the setters and reads false."""
    @check_los.setter
    def check_los(self, value: bool) -> None: ...
    @property
    def color(self) -> tuple[int, int, int, int]: """The line's colour: segment 0's, or the attachable colour of a version-0 plain line. A version-0 segmented line ignores the setter and reads the attachable colour."""
    @color.setter
    def color(self, value: tuple[int, int, int, int]) -> None: ...
    def color_at(self, segment: int) -> tuple[int, int, int, int]: """Setters without an index act on segment 0 (or the plain line); indexed setters past the count do nothing and indexed getters past it give 0 (a null colour)."""
    @property
    def num_segments(self) -> int: """At most 255 segments; resizes the PDU. A version-0 plain line has one segment and ignores the setter."""
    @num_segments.setter
    def num_segments(self, value: int) -> None: ...
    def pattern(self, segment: int) -> int: """Setters without an index act on segment 0 (or the plain line); indexed setters past the count do nothing and indexed getters past it give 0 (a null colour)."""
    def percentage(self, segment: int) -> int: """Setters without an index act on segment 0 (or the plain line); indexed setters past the count do nothing and indexed getters past it give 0 (a null colour)."""
    @property
    def projected(self) -> bool: """Current layout only; version 0 ignores the setters and reads false."""
    @projected.setter
    def projected(self, value: bool) -> None: ...
    @typing.overload
    def set_appearance(self, appearance: VdcLinePdu.VdcLineAppearance) -> None: """set_appearance(*args, **kwargs) Setters without an index act on segment 0 (or the plain line); indexed setters past the count do nothing and indexed getters past it give 0 (a null colour). Setters without an index act on segment 0 (or the plain line); indexed setters past the count do nothing and indexed getters past it give 0 (a null colour)."""
    @typing.overload
    def set_appearance(self, segment: int, appearance: VdcLinePdu.VdcLineAppearance) -> None: """set_appearance(*args, **kwargs) Setters without an index act on segment 0 (or the plain line); indexed setters past the count do nothing and indexed getters past it give 0 (a null colour). Setters without an index act on segment 0 (or the plain line); indexed setters past the count do nothing and indexed getters past it give 0 (a null colour)."""
    @typing.overload
    def set_arrow_style(self, style: VdcLinePdu.VdcLineArrowStyle) -> None: """set_arrow_style(*args, **kwargs) Setters without an index act on segment 0 (or the plain line); indexed setters past the count do nothing and indexed getters past it give 0 (a null colour). Setters without an index act on segment 0 (or the plain line); indexed setters past the count do nothing and indexed getters past it give 0 (a null colour)."""
    @typing.overload
    def set_arrow_style(self, segment: int, style: VdcLinePdu.VdcLineArrowStyle) -> None: """set_arrow_style(*args, **kwargs) Setters without an index act on segment 0 (or the plain line); indexed setters past the count do nothing and indexed getters past it give 0 (a null colour). Setters without an index act on segment 0 (or the plain line); indexed setters past the count do nothing and indexed getters past it give 0 (a null colour)."""
    def set_color_at(self, segment: int, rgba: tuple[int, int, int, int]) -> None: """Setters without an index act on segment 0 (or the plain line); indexed setters past the count do nothing and indexed getters past it give 0 (a null colour)."""
    @typing.overload
    def set_pattern(self, pattern: int) -> None: """set_pattern(*args, **kwargs) Setters without an index act on segment 0 (or the plain line); indexed setters past the count do nothing and indexed getters past it give 0 (a null colour). Setters without an index act on segment 0 (or the plain line); indexed setters past the count do nothing and indexed getters past it give 0 (a null colour)."""
    @typing.overload
    def set_pattern(self, segment: int, pattern: int) -> None: """set_pattern(*args, **kwargs) Setters without an index act on segment 0 (or the plain line); indexed setters past the count do nothing and indexed getters past it give 0 (a null colour). Setters without an index act on segment 0 (or the plain line); indexed setters past the count do nothing and indexed getters past it give 0 (a null colour)."""
    def set_percentage(self, segment: int, percent: int) -> None: """Setters without an index act on segment 0 (or the plain line); indexed setters past the count do nothing and indexed getters past it give 0 (a null colour)."""
    @typing.overload
    def set_thickness(self, thickness: int) -> None: """set_thickness(*args, **kwargs) Setters without an index act on segment 0 (or the plain line); indexed setters past the count do nothing and indexed getters past it give 0 (a null colour). Setters without an index act on segment 0 (or the plain line); indexed setters past the count do nothing and indexed getters past it give 0 (a null colour)."""
    @typing.overload
    def set_thickness(self, segment: int, thickness: int) -> None: """set_thickness(*args, **kwargs) Setters without an index act on segment 0 (or the plain line); indexed setters past the count do nothing and indexed getters past it give 0 (a null colour). Setters without an index act on segment 0 (or the plain line); indexed setters past the count do nothing and indexed getters past it give 0 (a null colour)."""
    def thickness(self, segment: int) -> int: """Setters without an index act on segment 0 (or the plain line); indexed setters past the count do nothing and indexed getters past it give 0 (a null colour)."""

class VdcLinePduV0(VdcLinePdu):
    """A version-0 plain line (392 bytes, viewer command 2520); a segmented type makes it a segmented line."""
    def __init__(self) -> None: """A version-0 plain line (392 bytes, viewer command 2520); a segmented type makes it a segmented line."""

class VdcLineSegment():
    """One stretch of a line object: its share of the line's length and how it looks."""
    DtVdcSegmentArrowDouble: typing.ClassVar[VdcSegmentArrowStyle]
    DtVdcSegmentArrowEnd: typing.ClassVar[VdcSegmentArrowStyle]
    DtVdcSegmentArrowStart: typing.ClassVar[VdcSegmentArrowStyle]
    DtVdcSegmentLightning: typing.ClassVar[VdcSegmentStyle]
    DtVdcSegmentNoArrow: typing.ClassVar[VdcSegmentArrowStyle]
    DtVdcSegmentStraight: typing.ClassVar[VdcSegmentStyle]
    class VdcSegmentArrowStyle():
        """Which ends of the segment carry an arrowhead."""
        DtVdcSegmentArrowDouble: typing.ClassVar[VdcSegmentArrowStyle]
        DtVdcSegmentArrowEnd: typing.ClassVar[VdcSegmentArrowStyle]
        DtVdcSegmentArrowStart: typing.ClassVar[VdcSegmentArrowStyle]
        DtVdcSegmentNoArrow: typing.ClassVar[VdcSegmentArrowStyle]
        def __eq__(self, other: typing.Any) -> bool: ...
        def __init__(self, value: int) -> None: ...
        def __ne__(self, other: typing.Any) -> bool: ...
        @property
        def name(self) -> str: ...
        @property
        def value(self) -> int: ...
        def __int__(self) -> int: ...
        def __index__(self) -> int: ...
        @property
        def name(self) -> str: ...
        @property
        def value(self) -> int: ...
    class VdcSegmentStyle():
        """How the segment is drawn."""
        DtVdcSegmentLightning: typing.ClassVar[VdcSegmentStyle]
        DtVdcSegmentStraight: typing.ClassVar[VdcSegmentStyle]
        def __eq__(self, other: typing.Any) -> bool: ...
        def __init__(self, value: int) -> None: ...
        def __ne__(self, other: typing.Any) -> bool: ...
        @property
        def name(self) -> str: ...
        @property
        def value(self) -> int: ...
        def __int__(self) -> int: ...
        def __index__(self) -> int: ...
        @property
        def name(self) -> str: ...
        @property
        def value(self) -> int: ...
    @typing.overload
    def __init__(self) -> None: """__init__(*args, **kwargs) One stretch of a line object: its share of the line's length and how it looks. percentage: the segment's share of the line's length, as a fraction of 1."""
    @typing.overload
    def __init__(self, percentage: float, color: VdcColor, pattern: int, thickness: int, style: VdcLineSegment.VdcSegmentStyle, arrow_style: VdcLineSegment.VdcSegmentArrowStyle) -> None: """__init__(*args, **kwargs) One stretch of a line object: its share of the line's length and how it looks. percentage: the segment's share of the line's length, as a fraction of 1."""
    @property
    def color(self) -> VdcColor: """The segment's look: colour, 32-bit dash pattern, thickness, share of the length, style and arrowheads."""

class VdcObjectType():
    """What a draw-control PDU draws or does. The numbering has gaps on purpose (no 2554: 2553 is the plain area, 2555 the 3D area); the group values are the viewer commands of the classes that carry them."""
    DtVdc2DLine: typing.ClassVar[VdcObjectType]
    DtVdc2DSegmentedLine: typing.ClassVar[VdcObjectType]
    DtVdc2DText: typing.ClassVar[VdcObjectType]
    DtVdc2DTriangle: typing.ClassVar[VdcObjectType]
    DtVdc3DArea: typing.ClassVar[VdcObjectType]
    DtVdc3DLine: typing.ClassVar[VdcObjectType]
    DtVdc3DSegmentedLine: typing.ClassVar[VdcObjectType]
    DtVdc3DText: typing.ClassVar[VdcObjectType]
    DtVdc3DTriangle: typing.ClassVar[VdcObjectType]
    DtVdcArea: typing.ClassVar[VdcObjectType]
    DtVdcAttribute: typing.ClassVar[VdcObjectType]
    DtVdcAttributeBitmap: typing.ClassVar[VdcObjectType]
    DtVdcAttributeGraphicListValue: typing.ClassVar[VdcObjectType]
    DtVdcAttributeGraphicSingleValue: typing.ClassVar[VdcObjectType]
    DtVdcAttributeGroup: typing.ClassVar[VdcObjectType]
    DtVdcAttributeGroupTemplate: typing.ClassVar[VdcObjectType]
    DtVdcAttributeNoValue: typing.ClassVar[VdcObjectType]
    DtVdcAttributeSingleValue: typing.ClassVar[VdcObjectType]
    DtVdcAttributeUpdate: typing.ClassVar[VdcObjectType]
    DtVdcAttributeValueReset: typing.ClassVar[VdcObjectType]
    DtVdcAttributeValueSet: typing.ClassVar[VdcObjectType]
    DtVdcAttributeValueSetText: typing.ClassVar[VdcObjectType]
    DtVdcCircle: typing.ClassVar[VdcObjectType]
    DtVdcCommand: typing.ClassVar[VdcObjectType]
    DtVdcCommandAddToLayer: typing.ClassVar[VdcObjectType]
    DtVdcCommandHide: typing.ClassVar[VdcObjectType]
    DtVdcCommandRemove: typing.ClassVar[VdcObjectType]
    DtVdcCommandRemoveFromLayer: typing.ClassVar[VdcObjectType]
    DtVdcCommandShow: typing.ClassVar[VdcObjectType]
    DtVdcCube: typing.ClassVar[VdcObjectType]
    DtVdcCylinder: typing.ClassVar[VdcObjectType]
    DtVdcLayer: typing.ClassVar[VdcObjectType]
    DtVdcLine: typing.ClassVar[VdcObjectType]
    DtVdcPolyObject: typing.ClassVar[VdcObjectType]
    DtVdcSegmentedLine: typing.ClassVar[VdcObjectType]
    DtVdcSphere: typing.ClassVar[VdcObjectType]
    DtVdcSquare: typing.ClassVar[VdcObjectType]
    DtVdcText: typing.ClassVar[VdcObjectType]
    DtVdcTriangle: typing.ClassVar[VdcObjectType]
    DtVdcUndefined: typing.ClassVar[VdcObjectType]
    def __eq__(self, other: typing.Any) -> bool: ...
    def __init__(self, value: int) -> None: ...
    def __ne__(self, other: typing.Any) -> bool: ...
    @property
    def name(self) -> str: ...
    @property
    def value(self) -> int: ...
    def __int__(self) -> int: ...
    def __index__(self) -> int: ...
    @property
    def name(self) -> str: ...
    @property
    def value(self) -> int: ...

class VdcPolyObjectPdu(VdcPolyObjectPduBase):
    """A poly object in the current layout."""
    def __init__(self) -> None: """A poly object in the current layout."""

class VdcPolyObjectPduV0(VdcPolyObjectPduBase):
    """A poly object in the version-0 layout."""
    def __init__(self) -> None: """A poly object in the version-0 layout."""

class VdcRectangleObject(VdcEllRectBase):
    """A rectangle in the viewer's screen plane."""
    def __init__(self, id: int, position: VdcVector2D, size: VdcVector2D, rotation: float, color: VdcColor, fill: bool, pattern: int, flashing: bool) -> None: """rotation in radians."""

class VdcSegmentedLinePduV0(VdcLinePdu):
    """A version-0 segmented line (388 bytes with no segments, viewer command 2530)."""
    def __init__(self) -> None: """A version-0 segmented line (388 bytes with no segments, viewer command 2530)."""

class VdcText2DObject(VdcObject):
    """A text label at a point of the viewer's screen (0..1 on each axis)."""
    def __init__(self, id: int, text: str, position: VdcVector2D, color: VdcColor, flashing: bool) -> None: """The text at a screen position."""
    @property
    def color(self) -> VdcColor: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @color.setter
    def color(self, value: VdcColor) -> None: ...
    @property
    def flashing(self) -> bool: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @flashing.setter
    def flashing(self, value: bool) -> None: ...
    @property
    def pdu(self) -> VistralDrawControlPdu: ...
    @property
    def position(self) -> VdcVector2D: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @position.setter
    def position(self, value: VdcVector2D) -> None: ...
    def set_pdu_attach(self) -> None: """The steps of updatePdu()."""
    def set_pdu_color(self) -> None: """The steps of updatePdu()."""
    def set_pdu_flashing(self) -> None: """The steps of updatePdu()."""
    def set_pdu_text(self) -> None: """The steps of updatePdu()."""
    @property
    def text(self) -> str: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @text.setter
    def text(self, value: str) -> None: ...
    def update_pdu(self) -> None: ...

class VdcText3DObject(VdcObject):
    """A text label in the world, placed at an attach point and shifted by an east-north-up offset in metres."""
    def __init__(self, id: int, text: str, attachment: Vdc3DAttachPoint, enu_offset: tuple[float, float, float], color: VdcColor, flashing: bool) -> None: """The text at the attach point, moved by enuOffset (east, north, up)."""
    @property
    def attachment(self) -> Vdc3DAttachPoint: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @attachment.setter
    def attachment(self, value: Vdc3DAttachPoint) -> None: ...
    @property
    def color(self) -> VdcColor: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @color.setter
    def color(self, value: VdcColor) -> None: ...
    @property
    def enu_offset(self) -> tuple[float, float, float]: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @enu_offset.setter
    def enu_offset(self, value: tuple[float, float, float]) -> None: ...
    @property
    def flashing(self) -> bool: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @flashing.setter
    def flashing(self, value: bool) -> None: ...
    @property
    def pdu(self) -> VistralDrawControlPdu: ...
    def set_pdu_attach(self) -> None: """The steps of updatePdu()."""
    def set_pdu_color(self) -> None: """The steps of updatePdu()."""
    def set_pdu_flashing(self) -> None: """The steps of updatePdu()."""
    def set_pdu_offset(self) -> None: """The steps of updatePdu()."""
    def set_pdu_text(self) -> None: """The steps of updatePdu()."""
    @property
    def text(self) -> str: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @text.setter
    def text(self, value: str) -> None: ...
    def update_pdu(self) -> None: ...

class VdcTextPduBase(VdcAttachablePdu):
    """Texts: a text placed at its anchors (viewer command 2560; types 2D and 3D text). The text travels at the PDU's end, without a terminator; the PDU is exactly as long as its fixed part plus the text."""
    @property
    def text(self) -> str: """An empty text stores length 0 and leaves the PDU's size and old bytes as they were."""
    @text.setter
    def text(self, value: str) -> None: ...

class VdcTextPdu(VdcTextPduBase):
    """A text in the current layout."""
    def __init__(self) -> None: """A text in the current layout."""

class VdcTextPduV0(VdcTextPduBase):
    """A text in the version-0 layout."""
    def __init__(self) -> None: """A text in the version-0 layout."""

class VdcTriangle2DObject(VdcObject):
    """A triangle in the viewer's screen plane: three vertices around a screen offset, scaled and rotated there."""
    def __init__(self, id: int, vertex1: VdcVector2D, vertex2: VdcVector2D, vertex3: VdcVector2D, offset: VdcVector2D, scale: VdcVector2D, rotation: float, color: VdcColor, fill: bool, pattern: int, flashing: bool) -> None: """rotation in radians."""
    @property
    def color(self) -> VdcColor: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @color.setter
    def color(self, value: VdcColor) -> None: ...
    @property
    def fill(self) -> bool: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @fill.setter
    def fill(self, value: bool) -> None: ...
    @property
    def flashing(self) -> bool: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @flashing.setter
    def flashing(self, value: bool) -> None: ...
    @property
    def offset(self) -> VdcVector2D: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @offset.setter
    def offset(self, value: VdcVector2D) -> None: ...
    @property
    def pattern(self) -> int: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @pattern.setter
    def pattern(self, value: int) -> None: ...
    @property
    def pdu(self) -> VistralDrawControlPdu: ...
    @property
    def rotation(self) -> float: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @rotation.setter
    def rotation(self, value: float) -> None: ...
    @property
    def scale(self) -> VdcVector2D: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @scale.setter
    def scale(self, value: VdcVector2D) -> None: ...
    def set_pdu_attach(self) -> None: """The steps of updatePdu()."""
    def set_pdu_color(self) -> None: """The steps of updatePdu()."""
    def set_pdu_fill(self) -> None: """The steps of updatePdu()."""
    def set_pdu_flashing(self) -> None: """The steps of updatePdu()."""
    def set_pdu_pattern(self) -> None: """The steps of updatePdu()."""
    def set_pdu_rotation(self) -> None: """The steps of updatePdu()."""
    def set_pdu_scale(self) -> None: """The steps of updatePdu()."""
    def set_pdu_vertices(self) -> None: """The steps of updatePdu()."""
    def update_pdu(self) -> None: ...
    @property
    def vertex1(self) -> VdcVector2D: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @vertex1.setter
    def vertex1(self, value: VdcVector2D) -> None: ...
    @property
    def vertex2(self) -> VdcVector2D: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @vertex2.setter
    def vertex2(self, value: VdcVector2D) -> None: ...
    @property
    def vertex3(self) -> VdcVector2D: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @vertex3.setter
    def vertex3(self, value: VdcVector2D) -> None: ...

class VdcTriangle3DObject(VdcObject):
    """A triangle in the world, given by its three corners."""
    def __init__(self, id: int, vertex1: tuple[float, float, float], vertex2: tuple[float, float, float], vertex3: tuple[float, float, float], color: VdcColor, flashing: bool) -> None: """A triangle of three world points."""
    @property
    def color(self) -> VdcColor: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @color.setter
    def color(self, value: VdcColor) -> None: ...
    @property
    def flashing(self) -> bool: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @flashing.setter
    def flashing(self, value: bool) -> None: ...
    @property
    def pdu(self) -> VistralDrawControlPdu: ...
    def set_pdu_color(self) -> None: """The steps of updatePdu()."""
    def set_pdu_flashing(self) -> None: """The steps of updatePdu()."""
    def set_pdu_points(self) -> None: """The steps of updatePdu()."""
    def update_pdu(self) -> None: ...
    @property
    def vertex1(self) -> tuple[float, float, float]: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @vertex1.setter
    def vertex1(self, value: tuple[float, float, float]) -> None: ...
    @property
    def vertex2(self) -> tuple[float, float, float]: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @vertex2.setter
    def vertex2(self, value: tuple[float, float, float]) -> None: ...
    @property
    def vertex3(self) -> tuple[float, float, float]: """The setters change the object only; the PDU follows at the next updatePdu()."""
    @vertex3.setter
    def vertex3(self, value: tuple[float, float, float]) -> None: ...

class VdcTrianglePduBase(VdcPolyObjectPduBase):
    """Triangles: a poly object with three corner points (viewer command 2550; types 2D and 3D triangle)."""
    def point(self, index: int) -> tuple[float, float, float]: """Points 0 to 2; other indices are ignored on set and give the zero vector."""
    def set_point(self, index: int, point: tuple[float, float, float]) -> None: """Points 0 to 2; other indices are ignored on set and give the zero vector."""

class VdcTrianglePdu(VdcTrianglePduBase):
    """A triangle in the current layout."""
    def __init__(self) -> None: """A triangle in the current layout."""

class VdcTrianglePduV0(VdcTrianglePduBase):
    """A triangle in the version-0 layout."""
    def __init__(self) -> None: """A triangle in the version-0 layout."""

class VdcVector2D():
    """Two components in the screen plane: a point of the screen (0 to 1 on each axis) or a step between two."""
    @typing.overload
    def __init__(self) -> None: """__init__(*args, **kwargs) Two components in the screen plane: a point of the screen (0 to 1 on each axis) or a step between two. The components. double x() const { return v_[0]; } double y() const { return v_[1]; } // 0 is x, 1 is y. Any other index reads as zero, and a write through it lands in a scratch value that the // next such access resets: the vector itself is never written outside its two components. double operator[](int index) const { return index == 0 || index == 1 ? v_[index] : 0.0; } double& operator[](int index);"""
    @typing.overload
    def __init__(self, x: float, y: float) -> None: """__init__(*args, **kwargs) Two components in the screen plane: a point of the screen (0 to 1 on each axis) or a step between two. The components. double x() const { return v_[0]; } double y() const { return v_[1]; } // 0 is x, 1 is y. Any other index reads as zero, and a write through it lands in a scratch value that the // next such access resets: the vector itself is never written outside its two components. double operator[](int index) const { return index == 0 || index == 1 ? v_[index] : 0.0; } double& operator[](int index);"""
    def approx_eq(self, other: VdcVector2D, tolerance: float) -> bool: """Each component within tolerance of the other's."""
    @property
    def magnitude_is_zero(self) -> bool: """Exactly zero, or within epsilon of zero length."""
    @property
    def vector3d(self) -> tuple[float, float, float]: """(x, y, 0)."""

class ViewerCommand():
    """A viewer command number; DtEnumString names it ("VcOrbit")."""
    DtVcAbsolute: typing.ClassVar[ViewerCommand]
    DtVcAbsoluteStatus: typing.ClassVar[ViewerCommand]
    DtVcCompass: typing.ClassVar[ViewerCommand]
    DtVcCompassStatus: typing.ClassVar[ViewerCommand]
    DtVcDrawArea: typing.ClassVar[ViewerCommand]
    DtVcDrawAttribute: typing.ClassVar[ViewerCommand]
    DtVcDrawAttributeUpdate: typing.ClassVar[ViewerCommand]
    DtVcDrawCommand: typing.ClassVar[ViewerCommand]
    DtVcDrawLayer: typing.ClassVar[ViewerCommand]
    DtVcDrawLine: typing.ClassVar[ViewerCommand]
    DtVcDrawPolyObject: typing.ClassVar[ViewerCommand]
    DtVcDrawSegmentedLine: typing.ClassVar[ViewerCommand]
    DtVcDrawText: typing.ClassVar[ViewerCommand]
    DtVcDrawTriangle: typing.ClassVar[ViewerCommand]
    DtVcGroup: typing.ClassVar[ViewerCommand]
    DtVcGroupStatus: typing.ClassVar[ViewerCommand]
    DtVcMimic: typing.ClassVar[ViewerCommand]
    DtVcMimicStatus: typing.ClassVar[ViewerCommand]
    DtVcMimicTrack: typing.ClassVar[ViewerCommand]
    DtVcMimicTrackStatus: typing.ClassVar[ViewerCommand]
    DtVcModeless: typing.ClassVar[ViewerCommand]
    DtVcModelessStatus: typing.ClassVar[ViewerCommand]
    DtVcMove: typing.ClassVar[ViewerCommand]
    DtVcOffsetMimic: typing.ClassVar[ViewerCommand]
    DtVcOffsetMimicStatus: typing.ClassVar[ViewerCommand]
    DtVcOptions: typing.ClassVar[ViewerCommand]
    DtVcOrbit: typing.ClassVar[ViewerCommand]
    DtVcOrbitStatus: typing.ClassVar[ViewerCommand]
    DtVcPivot: typing.ClassVar[ViewerCommand]
    DtVcPivotStatus: typing.ClassVar[ViewerCommand]
    DtVcRequestState: typing.ClassVar[ViewerCommand]
    DtVcTether: typing.ClassVar[ViewerCommand]
    DtVcTetherStatus: typing.ClassVar[ViewerCommand]
    DtVcTetherTrack: typing.ClassVar[ViewerCommand]
    DtVcTetherTrackStatus: typing.ClassVar[ViewerCommand]
    DtVcTrack: typing.ClassVar[ViewerCommand]
    DtVcTrackStatus: typing.ClassVar[ViewerCommand]
    def __eq__(self, other: typing.Any) -> bool: ...
    def __init__(self, value: int) -> None: ...
    def __ne__(self, other: typing.Any) -> bool: ...
    @property
    def name(self) -> str: ...
    @property
    def value(self) -> int: ...
    def __int__(self) -> int: ...
    def __index__(self) -> int: ...
    @property
    def name(self) -> str: ...
    @property
    def value(self) -> int: ...

class VistralControlFeatureCommand():
    """What the feature option does with the feature file it names."""
    DtVistralControlFeatureClear: typing.ClassVar[VistralControlFeatureCommand]
    DtVistralControlFeatureLoad: typing.ClassVar[VistralControlFeatureCommand]
    def __eq__(self, other: typing.Any) -> bool: ...
    def __init__(self, value: int) -> None: ...
    def __ne__(self, other: typing.Any) -> bool: ...
    @property
    def name(self) -> str: ...
    @property
    def value(self) -> int: ...
    def __int__(self) -> int: ...
    def __index__(self) -> int: ...
    @property
    def name(self) -> str: ...
    @property
    def value(self) -> int: ...

class VistralControlVideoCaptureCommand():
    """What the video capture option tells the viewer's recorder to do."""
    DtVistralControlVideoCapturePause: typing.ClassVar[VistralControlVideoCaptureCommand]
    DtVistralControlVideoCaptureRecord: typing.ClassVar[VistralControlVideoCaptureCommand]
    DtVistralControlVideoCaptureStop: typing.ClassVar[VistralControlVideoCaptureCommand]
    DtVistralControlVideoCaptureUnpause: typing.ClassVar[VistralControlVideoCaptureCommand]
    def __eq__(self, other: typing.Any) -> bool: ...
    def __init__(self, value: int) -> None: ...
    def __ne__(self, other: typing.Any) -> bool: ...
    @property
    def name(self) -> str: ...
    @property
    def value(self) -> int: ...
    def __int__(self) -> int: ...
    def __index__(self) -> int: ...
    @property
    def name(self) -> str: ...
    @property
    def value(self) -> int: ...

class VistralOption():
    """Option numbers, which are also the presence bits. Numbers from 28 on are the static members of DtOptionsPdu."""
    DtVistralAggregateHighestOnly: typing.ClassVar[VistralOption]
    DtVistralAggregateLevel: typing.ClassVar[VistralOption]
    DtVistralAggregatesAltitudeControlled: typing.ClassVar[VistralOption]
    DtVistralClampRange: typing.ClassVar[VistralOption]
    DtVistralConstrainWithFloor: typing.ClassVar[VistralOption]
    DtVistralDatabaseToLoad: typing.ClassVar[VistralOption]
    DtVistralEntityLabels: typing.ClassVar[VistralOption]
    DtVistralFarClip: typing.ClassVar[VistralOption]
    DtVistralFarFog: typing.ClassVar[VistralOption]
    DtVistralFloor: typing.ClassVar[VistralOption]
    DtVistralFog: typing.ClassVar[VistralOption]
    DtVistralFollowGround: typing.ClassVar[VistralOption]
    DtVistralFov: typing.ClassVar[VistralOption]
    DtVistralGroundClamping: typing.ClassVar[VistralOption]
    DtVistralLocatorRange: typing.ClassVar[VistralOption]
    DtVistralNearClip: typing.ClassVar[VistralOption]
    DtVistralNearFog: typing.ClassVar[VistralOption]
    DtVistralNestedAggregates: typing.ClassVar[VistralOption]
    DtVistralNestedEntities: typing.ClassVar[VistralOption]
    DtVistralOverlay: typing.ClassVar[VistralOption]
    DtVistralRecording: typing.ClassVar[VistralOption]
    DtVistralSmoothing: typing.ClassVar[VistralOption]
    DtVistralSmoothingPeriod: typing.ClassVar[VistralOption]
    DtVistralSound: typing.ClassVar[VistralOption]
    DtVistralTexture: typing.ClassVar[VistralOption]
    DtVistralTimeOfDay: typing.ClassVar[VistralOption]
    DtVistralTrailingEffects: typing.ClassVar[VistralOption]
    DtVistralTrajectoryHistory: typing.ClassVar[VistralOption]
    def __eq__(self, other: typing.Any) -> bool: ...
    def __init__(self, value: int) -> None: ...
    def __ne__(self, other: typing.Any) -> bool: ...
    @property
    def name(self) -> str: ...
    @property
    def value(self) -> int: ...
    def __int__(self) -> int: ...
    def __index__(self) -> int: ...
    @property
    def name(self) -> str: ...
    @property
    def value(self) -> int: ...

DtInitCreatedExecution: InitStatus
DtInitJoinedExecution: InitStatus
DtOverlayFull: OverlayOption
DtOverlayMinimal: OverlayOption
DtOverlayNone: OverlayOption
DtSmoothingCubic: SmoothingOption
DtSmoothingLinear: SmoothingOption
DtSmoothingOff: SmoothingOption
DtVcAbsolute: ViewerCommand
DtVcAbsoluteStatus: ViewerCommand
DtVcCompass: ViewerCommand
DtVcCompassStatus: ViewerCommand
DtVcDrawArea: ViewerCommand
DtVcDrawAttribute: ViewerCommand
DtVcDrawAttributeUpdate: ViewerCommand
DtVcDrawCommand: ViewerCommand
DtVcDrawLayer: ViewerCommand
DtVcDrawLine: ViewerCommand
DtVcDrawPolyObject: ViewerCommand
DtVcDrawSegmentedLine: ViewerCommand
DtVcDrawText: ViewerCommand
DtVcDrawTriangle: ViewerCommand
DtVcGroup: ViewerCommand
DtVcGroupStatus: ViewerCommand
DtVcMimic: ViewerCommand
DtVcMimicStatus: ViewerCommand
DtVcMimicTrack: ViewerCommand
DtVcMimicTrackStatus: ViewerCommand
DtVcModeless: ViewerCommand
DtVcModelessStatus: ViewerCommand
DtVcMove: ViewerCommand
DtVcOffsetMimic: ViewerCommand
DtVcOffsetMimicStatus: ViewerCommand
DtVcOptions: ViewerCommand
DtVcOrbit: ViewerCommand
DtVcOrbitStatus: ViewerCommand
DtVcPivot: ViewerCommand
DtVcPivotStatus: ViewerCommand
DtVcRequestState: ViewerCommand
DtVcTether: ViewerCommand
DtVcTetherStatus: ViewerCommand
DtVcTetherTrack: ViewerCommand
DtVcTetherTrackStatus: ViewerCommand
DtVcTrack: ViewerCommand
DtVcTrackStatus: ViewerCommand
DtVdc2DLine: VdcObjectType
DtVdc2DSegmentedLine: VdcObjectType
DtVdc2DText: VdcObjectType
DtVdc2DTriangle: VdcObjectType
DtVdc3DArea: VdcObjectType
DtVdc3DLine: VdcObjectType
DtVdc3DSegmentedLine: VdcObjectType
DtVdc3DText: VdcObjectType
DtVdc3DTriangle: VdcObjectType
DtVdcArea: VdcObjectType
DtVdcAttribute: VdcObjectType
DtVdcAttributeBitmap: VdcObjectType
DtVdcAttributeGraphicListValue: VdcObjectType
DtVdcAttributeGraphicSingleValue: VdcObjectType
DtVdcAttributeGroup: VdcObjectType
DtVdcAttributeGroupTemplate: VdcObjectType
DtVdcAttributeNoValue: VdcObjectType
DtVdcAttributeSingleValue: VdcObjectType
DtVdcAttributeUpdate: VdcObjectType
DtVdcAttributeValueReset: VdcObjectType
DtVdcAttributeValueSet: VdcObjectType
DtVdcAttributeValueSetText: VdcObjectType
DtVdcCircle: VdcObjectType
DtVdcCommand: VdcObjectType
DtVdcCommandAddToLayer: VdcObjectType
DtVdcCommandHide: VdcObjectType
DtVdcCommandRemove: VdcObjectType
DtVdcCommandRemoveFromLayer: VdcObjectType
DtVdcCommandShow: VdcObjectType
DtVdcCube: VdcObjectType
DtVdcCylinder: VdcObjectType
DtVdcLayer: VdcObjectType
DtVdcLine: VdcObjectType
DtVdcPolyObject: VdcObjectType
DtVdcSegmentedLine: VdcObjectType
DtVdcSphere: VdcObjectType
DtVdcSquare: VdcObjectType
DtVdcText: VdcObjectType
DtVdcTriangle: VdcObjectType
DtVdcUndefined: VdcObjectType
DtVistralAggregateHighestOnly: VistralOption
DtVistralAggregateLevel: VistralOption
DtVistralAggregatesAltitudeControlled: VistralOption
DtVistralClampRange: VistralOption
DtVistralConstrainWithFloor: VistralOption
DtVistralControlFeatureClear: VistralControlFeatureCommand
DtVistralControlFeatureLoad: VistralControlFeatureCommand
DtVistralControlVideoCapturePause: VistralControlVideoCaptureCommand
DtVistralControlVideoCaptureRecord: VistralControlVideoCaptureCommand
DtVistralControlVideoCaptureStop: VistralControlVideoCaptureCommand
DtVistralControlVideoCaptureUnpause: VistralControlVideoCaptureCommand
DtVistralDatabaseToLoad: VistralOption
DtVistralEntityLabels: VistralOption
DtVistralFarClip: VistralOption
DtVistralFarFog: VistralOption
DtVistralFloor: VistralOption
DtVistralFog: VistralOption
DtVistralFollowGround: VistralOption
DtVistralFov: VistralOption
DtVistralGroundClamping: VistralOption
DtVistralLocatorRange: VistralOption
DtVistralNearClip: VistralOption
DtVistralNearFog: VistralOption
DtVistralNestedAggregates: VistralOption
DtVistralNestedEntities: VistralOption
DtVistralOverlay: VistralOption
DtVistralRecording: VistralOption
DtVistralSmoothing: VistralOption
DtVistralSmoothingPeriod: VistralOption
DtVistralSound: VistralOption
DtVistralTexture: VistralOption
DtVistralTimeOfDay: VistralOption
DtVistralTrailingEffects: VistralOption
DtVistralTrajectoryHistory: VistralOption
SEND_TO_ALL: str
def _orbit_loop(controller: RemoteController, count: int) -> float: """For the benchmark: seconds taken by count orbit commands sent from a C++ loop."""
def from_bytes(data: bytes) -> typing.Any: """The PDU of the right class for a received image."""
def new_pdu(command: typing.Any) -> typing.Any: """An empty PDU for a command number (view-control first, then draw-control)."""

Controller = RemoteController
Drawer = RemoteDrawer
