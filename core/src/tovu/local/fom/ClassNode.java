package tovu.local.fom;

import java.util.ArrayList;
import java.util.Collection;
import java.util.LinkedHashMap;
import java.util.List;
import java.util.Map;
import java.util.Set;

/**
 * What object classes and interaction classes share: a place in a single-inheritance tree, and members (attributes or
 * parameters) that subclasses inherit.
 *
 * @param <C> the kind of class
 * @param <M> the kind of member
 */
public abstract class ClassNode<C extends ClassNode<C, M>, M extends Member> {
    private final int handle;
    private final String name;
    private final C parent;
    private final List<C> children = new ArrayList<>();
    private final Map<String, M> ownByName = new LinkedHashMap<>();
    private final Map<Integer, M> ownByHandle = new LinkedHashMap<>();
    /** The names of the members that the class declares. */
    final Property<Set<String>> declared = new Property<>();

    ClassNode(int handle, String name, C parent) {
        this.handle = handle;
        this.name = name;
        this.parent = parent;
    }

    abstract C self();

    final void addChild(C child) {
        children.add(child);
    }

    final void addMember(M member) {
        ownByName.put(member.name(), member);
        ownByHandle.put(member.handle(), member);
    }

    final Map<String, M> own() {
        return ownByName;
    }

    public final int handle() {
        return handle;
    }

    /** The name from the root on, such as HLAobjectRoot.Aircraft. */
    public final String name() {
        return name;
    }

    /** The superclass, or null for the root. */
    public final C parent() {
        return parent;
    }

    public final List<C> children() {
        return children;
    }

    /** The declared or inherited member of that name, or null. */
    public final M member(String memberName) {
        for (C c = self(); c != null; c = c.parent()) {
            M member = c.own().get(memberName);
            if (member != null) {
                return member;
            }
        }
        return null;
    }

    /** The declared or inherited member with that handle, or null. */
    public final M member(int memberHandle) {
        for (ClassNode<C, M> c = this; c != null; c = c.parent) {
            M member = c.ownByHandle.get(memberHandle);
            if (member != null) {
                return member;
            }
        }
        return null;
    }

    /** All members, those of the root first. */
    public final Collection<M> members() {
        List<M> all = new ArrayList<>();
        collectMembers(all);
        return all;
    }

    private void collectMembers(List<M> all) {
        if (parent != null) {
            ((ClassNode<C, M>) parent).collectMembers(all);
        }
        all.addAll(ownByName.values());
    }

    /** Whether a subclass, which an earlier module may have brought, declares a member of that name. */
    final boolean isDeclaredBelow(String memberName) {
        return subtree().stream().anyMatch(each -> each.own().containsKey(memberName));
    }

    /** This class and all below it. */
    public final List<C> subtree() {
        List<C> all = new ArrayList<>();
        all.add(self());
        for (int i = 0; i < all.size(); ++i) {
            all.addAll(all.get(i).children());
        }
        return all;
    }

    /** This class and all above it, this one first. */
    public final List<C> lineage() {
        List<C> all = new ArrayList<>();
        for (C c = self(); c != null; c = c.parent()) {
            all.add(c);
        }
        return all;
    }

    @Override
    public final String toString() {
        return name;
    }
}
